#include "support/random_edits.hpp"

#include <fmt/format.h>

#include "corpus/writetrees.hpp"
#include "edit/change.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "stats/statistics.hpp"

namespace brindle::test {

RandomEdits::RandomEdits(Corpus &corpus, unsigned seed, int vocabulary)
    : corpus_(corpus), shape_{.tags = vocabulary}, random_(seed) {
    add_label_changes();
    add_tree_changes();
    add_questions();
}

void RandomEdits::add(Kind kind) {
    total_weight_ += kind.weight;
    kinds_.push_back(std::move(kind));
}

Node *RandomEdits::random_node() {
    return test::random_node(corpus_.tree(random_.below(corpus_.amount())).root, random_);
}

std::string RandomEdits::random_tag() {
    if (const Label *tag = random_node()->sem(); tag && random_.chance(0.6)) return std::string(tag->view());
    return test::random_tag(shape_, random_);
}

std::string RandomEdits::random_category(const Node *node) {
    return test::random_category(shape_, node->lex(), random_);
}

void RandomEdits::add_label_changes() {
    add({"tag", 8, [this](Node *node) { set_tag(corpus_, node, random_tag()); }});
    add({"category", 3, [this](Node *node) { set_category(corpus_, node, random_category(node)); }});
    add({"copy", 3, [this](Node *node) { set_tag(corpus_, node, text_of(random_node()->sem())); }});
    add({"undo last", 4, [this](Node *node) { undo_last(corpus_, node); }});
    add({"undo all", 2, [this](Node *node) { undo_all(corpus_, node); }});
    add({"undo the tree", 1, [this](Node *node) {
             do_with(corpus_.tree_of(node).root, [this](Node *n) { undo_all(corpus_, n); });
         }});
    add({"clear below", 1,
         [this](Node *node) { for_each_in_subtree(node, [this](Node *n) { clear(corpus_, n); }); }});
    add({"refused", 1, [this](Node *node) {
             set_tag(corpus_, node, "a/b");
             set_category(corpus_, node, "(");
             replace_subtree(corpus_, node, "(S ");
         }});
}

// What changes a tree as a whole.
void RandomEdits::add_tree_changes() {
    add({"check", 4,
         [this](Node *node) { set_checked(corpus_, node->tree(), !corpus_.tree_of(node).checked); }});
    add({"replace", 2, [this](Node *node) {
             const std::string text = write_tree_to_editor(random_node());
             if (text.size() < 500) replace_subtree(corpus_, node, text + "\n");
         }});
    add({"save", 1, [this](Node *) { corpus_.forget_edits(); }});
}

// Questions change nothing but the indexes that later changes must keep.
void RandomEdits::add_questions() {
    add({"ask", 2, [this](Node *node) {
             if (!node->mother()) return;
             const Path path = path_of_context(node);
             corpus_.statistics->owner_of(corpus_.statistics->category_entry(node->unit()));
             if (node->lex()) corpus_.statistics->owner_of(corpus_.statistics->word_entry(node->unit()));
             corpus_.statistics->contexts_on(node->unit(), path);
             corpus_.statistics->contexts_on(node->unit()->pair, path);
         }});
}

void RandomEdits::step() {
    int chance = random_.below(total_weight_);
    std::size_t kind = 0;
    while ((chance -= kinds_[kind].weight) >= 0) ++kind;
    Node *const node = random_node();
    log.push_back(fmt::format("{} tree {} node {}", kinds_[kind].name, node->tree() + 1, path_of(node)));
    kinds_[kind].work(node);
}

}  // namespace brindle::test
