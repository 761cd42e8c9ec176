#include "stats/parents.hpp"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "model/forest.hpp"
#include "stats/changes.hpp"
#include "stats/links.hpp"
#include "support/random_corpus.hpp"

namespace brindle::test {
namespace {

using Tags = std::vector<std::pair<LabelEntry *, int>>;

// What a list says of its paths, found by walking it.
std::map<std::tuple<LabelEntry *, int, int>, Tags> paths_of(const Parents &parents) {
    std::map<std::tuple<LabelEntry *, int, int>, Tags> paths;
    for (const ParentRecord *r = parents.first(); r; r = r->next) {
        Tags &tags = paths[{r->syn, r->dtr_nr, r->nr_of_dtrs}];
        if (r->checked_count > 0) tags.emplace_back(r->sem, r->checked_count);
    }
    return paths;
}

void expect_paths_agree(Parents &parents) {
    PathTags room;
    for (const auto &[key, tags] : paths_of(parents)) {
        const auto [syn, dtr_nr, nr_of_dtrs] = key;
        const PathTags &got = parents.tags_of({syn, dtr_nr, nr_of_dtrs}, room);
        Tags got_tags;
        int total = 0;
        for (const auto &tag : got.tags) got_tags.emplace_back(tag.sem, tag.checked_count);
        for (const auto &tag : tags) total += tag.second;
        EXPECT_EQ(got_tags, tags);
        EXPECT_EQ(got.total, total);
    }
}

void expect_categories_agree(LabelEntry *category) {
    std::map<std::tuple<LabelEntry *, int, int>, std::map<LabelEntry *, int>> all;
    for (LabelLink *l = category->links.first(); l; l = l->next)
        for (const auto &[key, tags] : paths_of(l->parents))
            for (const auto &[sem, count] : tags) all[key][sem] += count;
    for (const auto &[key, tags] : all) {
        const auto [syn, dtr_nr, nr_of_dtrs] = key;
        const TagCounts *got = tags_above(category, {syn, dtr_nr, nr_of_dtrs});
        ASSERT_TRUE(got || tags.empty());
        const TagCounts &counts = got ? *got : TagCounts();
        EXPECT_EQ((std::map<LabelEntry *, int>(counts.begin(), counts.end())), tags);
    }
}

// The indexes by path, once built, follow every change: the lists' own order and counts.
TEST(Parents, paths_follow_all_changes) {
    const RandomShape shape{300, 2, 2, 1, 10, 1, 0.6};
    for (unsigned seed = 0; seed < 8; ++seed) {
        Random random(seed);
        make_random_corpus(shape, random);
        for (int step = 0; step < 200; ++step) {
            const int t = random.below(amount);
            if (random.chance(0.5)) {
                set_checked(t, !forest[static_cast<std::size_t>(t)].checked);
            } else {
                const TreeCheckedScope scope(forest[static_cast<std::size_t>(t)]);
                Node *node = random_node(forest[static_cast<std::size_t>(t)].root, random);
                new_label(node, random_tag(shape, random), nullptr);
            }
            if (step % 10) continue;
            for (auto &bucket : lex_table)
                for (LexEntry *w = bucket.first; w; w = w->next)
                    for (LexLink *l = w->links.first(); l; l = l->next) expect_paths_agree(l->parents);
            for (auto &bucket : table)
                for (LabelEntry *e = bucket.first; e; e = e->next) {
                    if (e->kind == LabelKind::SEM) continue;
                    expect_categories_agree(e);
                    for (LabelLink *l = e->links.first(); l; l = l->next) expect_paths_agree(l->parents);
                }
            ASSERT_FALSE(HasFailure()) << "seed " << seed << ", step " << step;
        }
    }
    reset_forest();
    tables_init();
}

}  // namespace
}  // namespace brindle::test
