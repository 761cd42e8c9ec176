#pragma once
// The runs that Prolog drives: one query a node, the next when Prolog is back at its prompt.
#include <functional>
#include <vector>

namespace brindle {

struct Node;
struct TreeView;

// Which run it is, and with that which global names the node whose answer is awaited.
enum class NodeRunKind { filter, evaluate };

// Walks the nodes with tags of the selected trees in document order (with ROOT_ONLY: the roots alone). One
// such run exists at a time; its position is CURRENT_TREE and FILTER_NODE or EVAL_NODE.
class NodeRun {
  public:
    struct Hooks {
        // A tree is begun: a filter run makes it the window's current tree, an evaluation shows it.
        std::function<void(int tree)> begin_tree;
        // Sends the node's tag as a query. False: it cannot be sent, which ends the run.
        std::function<bool(Node *node)> send_query;
        // The run is over, after `tree` (-1: there was none): called once, by whichever call finds it so.
        std::function<void(int tree)> finish;
    };

    // REQUIRES: begin_batch(). The trees are 0-based, in the order of processing. Sends nothing yet.
    NodeRun(NodeRunKind kind, std::vector<int> trees, TreeView *view, Hooks hooks);

    // Begins the first tree and sends the first query; ends the run if there is none to send.
    void start();
    // Prolog is back at its prompt: sends the next query, or ends the run. Nothing happens once it has ended.
    void go_on();
    // Ends the run where it is, without finish().
    void abandon() { ended_ = true; }

    bool ended() const { return ended_; }
    // The tree that the run is on, 0-based; -1: it never was on one.
    int tree() const;

  private:
    bool begin_tree(std::size_t place);
    void send_or_finish();
    Node *&awaited() const;
    void end();

    NodeRunKind kind_;
    std::vector<int> trees_;
    TreeView *view_;
    Hooks hooks_;
    Node *root_ = nullptr;
    Node *node_ = nullptr;  // the node that is looked at next; null: the tree is done
    bool ended_ = false;
};

}  // namespace brindle
