#include "propose/node_run.hpp"

#include <utility>

#include "model/forest.hpp"
#include "model/request.hpp"
#include "model/traversal.hpp"

namespace brindle {

NodeRun::NodeRun(NodeRunKind kind, std::vector<int> trees, TreeView *view, Hooks hooks)
    : kind_(kind), trees_(std::move(trees)), view_(view), hooks_(std::move(hooks)) {}

Node *&NodeRun::awaited() const {
    return kind_ == NodeRunKind::filter ? FILTER_NODE : EVAL_NODE;
}

int NodeRun::tree() const {
    const auto place = static_cast<std::size_t>(CURRENT_TREE);
    return root_ && place < trees_.size() ? trees_[place] : -1;
}

void NodeRun::start() {
    FILTER_NODE = EVAL_NODE = nullptr;
    BATCH_TREE_GUI = view_;
    if (begin_tree(0))
        send_or_finish();
    else
        end();
}

// Begins the tree at that place of the selection. False: the selection has no such place.
bool NodeRun::begin_tree(std::size_t place) {
    if (place >= trees_.size()) return false;
    CURRENT_TREE = static_cast<int>(place);
    root_ = node_ = forest[static_cast<std::size_t>(trees_[place])].root;
    hooks_.begin_tree(trees_[place]);
    return true;
}

void NodeRun::go_on() {
    if (ended_) return;
    FILTER_NODE = EVAL_NODE = nullptr;
    if (node_) node_ = ROOT_ONLY ? nullptr : next_in_document(node_, root_);
    send_or_finish();
}

// From node_ on, finds the next node with a tag, in this tree or in one of the following ones.
void NodeRun::send_or_finish() {
    while (BATCH) {
        while (node_ && !node_->sem) node_ = ROOT_ONLY ? nullptr : next_in_document(node_, root_);
        if (node_) {
            awaited() = node_;
            if (hooks_.send_query(node_)) return;
            break;
        }
        if (!begin_tree(static_cast<std::size_t>(CURRENT_TREE) + 1)) break;
    }
    end();
}

void NodeRun::end() {
    if (std::exchange(ended_, true)) return;
    hooks_.finish(tree());
}

}  // namespace brindle
