#include "prolog/subtrees.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <vector>

#include "model/forest.hpp"
#include "model/frontend.hpp"
#include "model/label_rules.hpp"
#include "model/punctuation.hpp"
#include "model/request.hpp"
#include "stats/changes.hpp"

namespace brindle {
namespace {

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// Where the next "d" with a digit behind it stands; the end of the formula if there is none.
std::size_t next_reference(std::string_view formula) {
    std::size_t at = formula.find('d');
    while (at != formula.npos && (at + 1 == formula.size() || !is_digit(formula[at + 1])))
        at = formula.find('d', at + 1);
    return std::min(at, formula.size());
}

// The daughter of that number; null if there is none. Numbers beyond any tree's reach simply find none.
Node *daughter_of(const Node *node, std::string_view digits) {
    int number = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc())
        return nullptr;
    if (number > node->nr_of_dtrs) return nullptr;
    Node *daughter = node->dtrs;
    while (daughter && --number > 0) daughter = daughter->sister;
    return daughter;
}

class Expansion {
  public:
    Expansion(std::string &out, TreeView *view) : out_(out), start_(out.size()), view_(view) {}

    std::optional<ExpansionError> expand(Node *node);

  private:
    // A formula that is being copied: what is left of it, and where its expansion starts.
    struct Formula {
        Node *node;
        std::string_view rest;
        std::size_t start;
    };

    void enter(Node *node);
    void copy_to_reference();
    void expand_dtr_expr(std::string_view digits);
    void leave();
    void show_hidden(const Node *daughter);
    void fail(const Node *node, std::string message);

    std::string &out_;
    std::size_t start_;
    TreeView *view_;
    std::vector<Formula> open_;
    std::size_t entered_ = 0;
    std::optional<ExpansionError> error_;
};

std::optional<ExpansionError> Expansion::expand(Node *node) {
    enter(node);
    while (!error_ && !open_.empty()) {
        copy_to_reference();
        // A chain of references that adds nothing is bounded like one that does.
        if (!error_ && out_.size() - start_ + entered_ > max_expansion) fail(node, "Expansion too long");
    }
    if (!error_) return std::nullopt;
    out_.resize(start_);
    BATCH = false;
    frontend->prompt_at_node(error_->node, error_->message, view_, false);
    return std::move(error_);
}

void Expansion::enter(Node *node) {
    if (!node->sem) return fail(node, "This node requires an annotation");
    open_.push_back({node, node->sem->view(), out_.size()});
    ++entered_;
}

// Copies the innermost formula up to its next reference and begins with that, or ends the formula.
void Expansion::copy_to_reference() {
    std::string_view &rest = open_.back().rest;
    const std::size_t at = next_reference(rest);
    out_.append(rest.substr(0, at));
    if (at == rest.size()) return leave();
    std::size_t end = at + 1;
    while (end < rest.size() && is_digit(rest[end])) ++end;
    const std::string_view digits = rest.substr(at + 1, end - at - 1);
    rest.remove_prefix(end);
    expand_dtr_expr(digits);
}

void Expansion::expand_dtr_expr(std::string_view digits) {
    const Node *node = open_.back().node;
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.empty()) return fail(node, "0 is not a daughter number");
    Node *daughter = daughter_of(node, digits);
    if (!daughter) return fail(node, fmt::format("\"d{}\": non-existent daughter.", digits));
    show_hidden(daughter);
    if (daughter->selected || BATCH)
        enter(daughter);
    else
        out_.append("D").append(digits);
}

void Expansion::leave() {
    const Formula done = open_.back();
    open_.pop_back();
    if (!SWAP_FLAG) return;
    const std::string expansion = out_.substr(done.start);
    if (auto refusal = refuse_tag(expansion)) return fail(done.node, std::move(*refusal));
    new_label(done.node, expansion, nullptr);
}

void Expansion::show_hidden(const Node *daughter) {
    if (!view_ || view_->show_punctuation || !punctuation(daughter->syn)) return;
    view_->show_punctuation = 1;
    frontend->frame_busy(view_, true);
    frontend->tree_GUI_repaint(view_);
    frontend->frame_busy(view_, false);
}

void Expansion::fail(const Node *node, std::string message) {
    error_ = {node, std::move(message)};
}

// SWAP_FLAG for a lifetime.
class SwapScope {
  public:
    SwapScope() { SWAP_FLAG = true; }
    ~SwapScope() { SWAP_FLAG = false; }
    SwapScope(const SwapScope &) = delete;
    SwapScope &operator=(const SwapScope &) = delete;
};

// The longest start of the text that has at most so many bytes and splits no UTF-8 character.
std::string_view cut(std::string_view text, std::size_t most) {
    if (text.size() <= most) return text;
    while (most > 0 && (text[most] & 0xc0) == 0x80) --most;
    return text.substr(0, most);
}

}  // namespace

std::optional<ExpansionError> expand_expr(std::string &out, Node *node, TreeView *view) {
    return Expansion(out, view).expand(node);
}

std::optional<ExpansionError> expand_into_tags(Node *node, TreeView *view) {
    const TreeEntry *tree = tree_of(node);
    const TreeCheckedScope checked(tree ? tree->checked : TREE_CHECKED);
    const SwapScope swap;
    std::string text;
    return expand_expr(text, node, view);
}

Node *top_of_selection(Node *node) {
    while (node->mother && node->mother->selected) node = node->mother;
    return node;
}

std::optional<ExpansionError> show_expansion(Node *node, TreeView *view) {
    Node *top = top_of_selection(node);
    std::string text;
    if (auto error = expand_expr(text, top, view)) return error;
    frontend->prompt_at_node(top, text + ".\n\n", view, true);
    return std::nullopt;
}

std::optional<ExpansionError> make_expansions(Node *node, TreeView *view) {
    auto error = expand_into_tags(top_of_selection(node), view);
    frontend->tree_GUI_repaint(view);
    return error;
}

std::string evaluation_line(const TreeView &view, std::string_view formula) {
    if (view.predicate.empty()) return fmt::format("{}\n", formula);
    return fmt::format("{}({}).\n", view.predicate, formula);
}

std::string filter_line(const TreeView &view, std::string_view tag) {
    if (view.predicate_is_null) return fmt::format("{}.\n", tag);
    return fmt::format("{}({}).\n", view.predicate, tag);
}

std::string set_pred(TreeView &view, std::string_view predicate) {
    view.predicate = predicate;
    view.predicate_is_null = predicate.empty();
    const std::string text = "Evaluation predicate: ";
    if (predicate.empty()) return text + "none";
    return text + std::string(cut(predicate, 63 - text.size()));
}

}  // namespace brindle
