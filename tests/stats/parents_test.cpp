// The indexes by path, once built, follow every change.
#include "stats/parents.hpp"

#include <gtest/gtest.h>

#include "stats/verify.hpp"
#include "support/corpus.hpp"
#include "support/random_corpus.hpp"

namespace brindle::test {
namespace {

// Builds every index there is to build.
void ask_all() {
    PathTags room;
    const auto ask = [&](auto *links) {
        for (auto *l = links; l; l = l->next)
            if (const ParentRecord *r = l->parents.first()) l->parents.tags_of(r->key().path(), room);
    };
    for (auto &bucket : lex_table)
        for (LexEntry *w = bucket.first; w; w = w->next) ask(w->links.first());
    for (auto &bucket : table)
        for (LabelEntry *e = bucket.first; e; e = e->next) {
            if (e->kind == LabelKind::SEM) continue;
            ask(e->links.first());
            tags_above(e, {e->name, 1, 1});
        }
}

TEST(Parents, paths_follow_all_changes) {
    const RandomShape shape{300, 2, 2, 1, 10, 1, 0.6};
    for (unsigned seed = 0; seed < 8; ++seed) {
        Random random(seed);
        make_random_corpus(shape, random);
        for (int step = 0; step < 200; ++step) {
            const int t = random.below(amount);
            TreeEntry &tree = forest[static_cast<std::size_t>(t)];
            if (random.chance(0.5)) {
                set_checked(t, !tree.checked);
            } else {
                const TreeCheckedScope scope(tree);
                new_label(random_node(tree.root, random), random_tag(shape, random), nullptr);
            }
            if (step % 20) continue;
            ASSERT_EQ(verify_tables(), "") << "seed " << seed << ", step " << step;
            ask_all();
        }
    }
    reset_all();
}

}  // namespace
}  // namespace brindle::test
