#include "prolog/expansion.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <vector>

#include "edit/change.hpp"
#include "edit/history.hpp"
#include "model/punctuation.hpp"
#include "propose/run.hpp"

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
    if (number > node->nr_of_dtrs()) return nullptr;
    Node *daughter = node->dtrs();
    while (daughter && --number > 0) daughter = daughter->sister();
    return daughter;
}

class Expansion {
  public:
    Expansion(std::string &out, Corpus &corpus, const ExpansionOptions &options)
        : out_(out), start_(out.size()), corpus_(corpus), options_(options) {}

    std::optional<ExpansionError> expand(Node *node);

  private:
    // A formula that is being copied: what is left of it, and where its expansion starts.
    struct OpenFormula {
        Node *node;
        std::string_view rest;
        std::size_t start;
    };

    void enter(Node *node);
    void copy_to_reference();
    void expand_reference(std::string_view digits);
    void leave();
    void fail(Node *node, std::string message) { error_ = {node, std::move(message)}; }

    std::string &out_;
    std::size_t start_;
    Corpus &corpus_;
    const ExpansionOptions &options_;
    std::vector<OpenFormula> open_;
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
    if (error_) out_.resize(start_);
    return std::move(error_);
}

void Expansion::enter(Node *node) {
    if (!node->sem()) return fail(node, "This node requires an annotation");
    open_.push_back({node, node->sem()->view(), out_.size()});
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
    expand_reference(digits);
}

void Expansion::expand_reference(std::string_view digits) {
    Node *const node = open_.back().node;
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.empty()) return fail(node, "0 is not a daughter number");
    Node *const daughter = daughter_of(node, digits);
    if (!daughter) return fail(node, fmt::format("\"d{}\": non-existent daughter.", digits));
    if (options_.on_punctuation && punctuation(daughter->syn())) options_.on_punctuation(daughter);
    if (daughter->selected() || options_.whole)
        enter(daughter);
    else
        out_.append("D").append(digits);
}

void Expansion::leave() {
    const OpenFormula done = open_.back();
    open_.pop_back();
    if (!options_.into_tags) return;
    if (auto refusal = set_tag(corpus_, done.node, std::string_view(out_).substr(done.start)))
        fail(done.node, std::move(*refusal));
}

// The longest start of the text that has at most so many bytes and splits no UTF-8 character.
std::string_view cut(std::string_view text, std::size_t most) {
    if (text.size() <= most) return text;
    while (most > 0 && (text[most] & 0xc0) == 0x80) --most;
    return text.substr(0, most);
}

}  // namespace

std::optional<ExpansionError> expand(std::string &out, Corpus &corpus, Node *node,
                                     const ExpansionOptions &options) {
    return Expansion(out, corpus, options).expand(node);
}

std::optional<ExpansionError> expand_into_tags(Corpus &corpus, Node *node, ExpansionOptions options) {
    const HistoryStep step(corpus, "Expand");
    options.into_tags = true;
    std::string text;
    return expand(text, corpus, node, options);
}

int expand_all(Run &run, const std::function<void(const ExpansionError &)> &failed,
               const std::function<void(Node *daughter)> &on_punctuation) {
    const HistoryStep step(run.corpus(), "Expand");
    const ExpansionOptions options{.whole = true, .on_punctuation = on_punctuation};
    return run.for_each_tree([&](int tree) {
        Node *const root = run.corpus().tree(tree).root;
        if (!root->sem()) return;
        const auto error = expand_into_tags(run.corpus(), root, options);
        if (!error) return;
        run.stop();
        failed(*error);
    });
}

Node *top_of_selection(Node *node) {
    while (node->mother() && node->mother()->selected()) node = node->mother();
    return node;
}

std::string Predicate::set(std::string_view typed) {
    text = typed;
    is_null = typed.empty();
    const std::string footer = "Evaluation predicate: ";
    if (typed.empty()) return footer + "none";
    return footer + std::string(cut(typed, 63 - footer.size()));
}

std::string Predicate::evaluation_line(std::string_view formula) const {
    if (text.empty()) return fmt::format("{}\n", formula);
    return fmt::format("{}({}).\n", text, formula);
}

std::string Predicate::filter_line(std::string_view tag) const {
    if (is_null) return fmt::format("{}.\n", tag);
    return fmt::format("{}({}).\n", text, tag);
}

std::string Predicate::step_line(std::string_view tag) const {
    if (text.empty()) return fmt::format("{}.\n", tag);
    return filter_line(tag);
}

}  // namespace brindle
