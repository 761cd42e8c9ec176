#pragma once
// The runs that Prolog drives: one query a node, the next when Prolog is back at its prompt.
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "edit/history.hpp"

namespace brindle {

enum class NodeRunKind {
    filter,    // Prolog's messages become the tags
    evaluate,  // they are shown at the nodes
};

// Walks the nodes with tags of the selected trees in document order, or the roots alone. prolog/'s session
// drives it and gives it the messages.
class NodeRun {
  public:
    struct Hooks {
        // A tree is begun: a filter run makes it the window's current tree, an evaluation shows it.
        std::function<void(int tree)> begin_tree;
        // Sends the node's tag as a query. False: it cannot be sent, which ends the run.
        std::function<bool(Node *node)> send_query;
        // Filter runs: the message cannot be the node's tag, which stays; the text says why.
        std::function<void(Node *node, std::string_view text)> refused;
        // Evaluation runs: shows the message at the node.
        std::function<void(Node *node, std::string_view message)> show;
        // The run is over, after `tree` (-1: there was none): called once, by whichever call finds it so.
        std::function<void(int tree)> finish;
        // Instead of `finish`: the run is over before its time, Prolog was lost.
        std::function<void()> broken_off;
    };

    // The trees are 0-based, in the order of processing. Sends nothing yet.
    NodeRun(Corpus &corpus, NodeRunKind kind, std::vector<int> trees, bool roots_only, Hooks hooks);

    NodeRunKind kind() const { return kind_; }
    const std::vector<int> &trees() const { return trees_; }
    // The node whose answer is awaited; null: none.
    Node *awaited() const { return awaited_; }
    // The tree that the run is on, 0-based; -1: it never was on one.
    int tree() const;
    bool ended() const { return ended_; }

    // Ends the run where it is, without a word: Abort.
    void stop();

    // ---------------------------------------------------------------- for the session

    // Begins the first tree and sends the first query; ends the run if there is none to send.
    void start();
    // Prolog is back at its prompt: sends the next query, or ends the run. Nothing happens once it has ended.
    void go_on();
    // Prolog's message for the awaited node.
    void take_message(std::string_view message);
    // Ends the run with broken_off.
    void break_off();
    // The subtree of `top` has been replaced: a run that is in it goes on with the next tree.
    void subtree_replaced(const Node *top);

  private:
    bool begin_next_tree();
    Node *next_node(const Node *node) const;
    void send_or_finish();
    void finish();

    Corpus &corpus_;
    NodeRunKind kind_;
    std::vector<int> trees_;
    bool roots_only_;
    Hooks hooks_;
    std::size_t begun_ = 0;    // how many trees have been begun
    Node *node_ = nullptr;     // the node in hand; null: the tree is done
    Node *awaited_ = nullptr;  // node_ while its answer is awaited
    bool ended_ = false;
    std::optional<HistoryStep> step_;  // of the history, while a filter run goes on
};

// Gives the node Prolog's message as its tag, line ends around it left out. Returns the notice to show if it
// cannot be one; the tag stays then.
std::optional<std::string> give_answer(Corpus &corpus, Node *node, std::string_view message);

}  // namespace brindle
