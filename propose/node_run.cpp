#include "propose/node_run.hpp"

#include <fmt/format.h>

#include <utility>

#include "edit/change.hpp"
#include "model/traversal.hpp"

namespace brindle {

namespace {

// A program that writes its markers on lines of their own means the text between them.
std::string_view without_outer_newlines(std::string_view text) {
    const auto is_break = [](char c) { return c == '\n' || c == '\r'; };
    while (!text.empty() && is_break(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_break(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace

std::optional<std::string> give_answer(Corpus &corpus, Node *node, std::string_view message) {
    const auto refusal = set_tag(corpus, node, without_outer_newlines(message));
    if (!refusal) return std::nullopt;
    return fmt::format("Prolog's answer cannot be the tag:\n{}", *refusal);
}

NodeRun::NodeRun(Corpus &corpus, NodeRunKind kind, std::vector<int> trees, bool roots_only, Hooks hooks)
    : corpus_(corpus),
      kind_(kind),
      trees_(std::move(trees)),
      roots_only_(roots_only),
      hooks_(std::move(hooks)) {}

int NodeRun::tree() const {
    return begun_ > 0 ? trees_[begun_ - 1] : -1;
}

void NodeRun::start() {
    if (kind_ == NodeRunKind::filter) step_.emplace(corpus_, "Filter");
    send_or_finish();
}

void NodeRun::stop() {
    ended_ = true;
    awaited_ = nullptr;
    step_.reset();
}

void NodeRun::go_on() {
    if (ended_) return;
    awaited_ = nullptr;
    if (node_) node_ = next_node(node_);
    send_or_finish();
}

// False: the selection has no more trees.
bool NodeRun::begin_next_tree() {
    if (begun_ == trees_.size()) return false;
    const int tree = trees_[begun_++];
    node_ = corpus_.tree(tree).root;
    hooks_.begin_tree(tree);
    return true;
}

Node *NodeRun::next_node(const Node *node) const {
    return roots_only_ ? nullptr : next_in_document(node, corpus_.tree_of(node).root);
}

// From node_ on, finds the next node with a tag, in this tree or in one of the following ones.
void NodeRun::send_or_finish() {
    while (!ended_) {
        while (node_ && !node_->sem()) node_ = next_node(node_);
        if (node_) {
            awaited_ = node_;
            if (hooks_.send_query(node_)) return;
            break;
        }
        if (!begin_next_tree()) break;
    }
    finish();
}

void NodeRun::finish() {
    awaited_ = nullptr;
    if (std::exchange(ended_, true)) return;
    step_.reset();
    hooks_.finish(tree());
}

void NodeRun::take_message(std::string_view message) {
    Node *const node = awaited_;
    if (!node) return;
    if (kind_ == NodeRunKind::evaluate) {
        hooks_.show(node, message);
    } else if (const auto refusal = give_answer(corpus_, node, message)) {
        hooks_.refused(node, *refusal);
    }
}

void NodeRun::break_off() {
    awaited_ = nullptr;
    if (std::exchange(ended_, true)) return;
    step_.reset();
    hooks_.broken_off();
}

void NodeRun::subtree_replaced(const Node *top) {
    if (is_below(top, node_)) node_ = awaited_ = nullptr;
}

}  // namespace brindle
