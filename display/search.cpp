#include "display/search.hpp"

#include <fmt/format.h>

#include "model/forest.hpp"
#include "model/label_rules.hpp"
#include "model/limits.hpp"
#include "model/text.hpp"
#include "stats/changes.hpp"
#include "stats/tables.hpp"

namespace brindle {
namespace {

LabelEntry *known(const std::string &name, LabelKind kind) {
    return search(name, kind, MustExist::no);
}

// The resolved fields of an exact search, and what was not found.
class ExactLabels {
  public:
    void resolve_category(const SearchRequest &request, const TermOrNonterm &ask) {
        if (request.syn.empty()) return;
        const LabelEntry *term = known(request.syn, LabelKind::TERM);
        const LabelEntry *nonterm = known(request.syn, LabelKind::NONTERM);
        const LabelEntry *entry = nonterm ? nonterm : term;
        if (term && !request.lex.empty())
            entry = term;
        else if (term && nonterm)
            entry = ask(question(request.syn)) == LabelKind::TERM ? term : nonterm;
        if (!entry)
            return miss(fmt::format("Syntactic label \"{}\" does not occur in this corpus", request.syn));
        syn_ = entry->name;
        kind_ = entry->kind;
    }

    void resolve_tag(const std::string &name) {
        if (name.empty()) return;
        const LabelEntry *entry = known(name, LabelKind::SEM);
        if (entry)
            sem_ = entry->name;
        else if (!messages_.empty())
            miss(fmt::format("Neither does \"{}\"", name));
        else
            miss(fmt::format("Semantic label \"{}\" does not occur in this corpus", name));
    }

    void resolve_word(const std::string &name) {
        if (name.empty()) return;
        const LexEntry *entry = searchlex(name, MustExist::no);
        if (entry)
            lex_ = entry->name;
        else if (messages_.size() == 2)
            miss(fmt::format("Nor \"{}\"", name));
        else if (messages_.size() == 1)
            miss(fmt::format("Neither does \"{}\"", name));
        else
            miss(fmt::format("Lexical item \"{}\" does not occur in this corpus", name));
    }

    Addresses take() {
        if (!messages_.empty()) return {std::move(messages_), std::nullopt};
        return {{}, Pattern::exact(syn_, sem_, lex_, kind_)};
    }

  private:
    static std::string question(const std::string &name) {
        return fmt::format(
            "There are two different syntactic categories called {};\n\x1b\n\t\t"
            "a terminal and a non-terminal. Which one do you mean?",
            name);
    }

    void miss(std::string message) { messages_.push_back({std::move(message), true}); }

    std::vector<SearchMessage> messages_;
    const Label *syn_ = nullptr;
    const Label *sem_ = nullptr;
    const Label *lex_ = nullptr;
    std::optional<LabelKind> kind_;
};

std::optional<std::string> unless_empty(const std::string &field) {
    return field.empty() ? std::nullopt : std::optional(field);
}

std::string new_text(const Label *label, const SearchRequest &request, const std::string &needle,
                     std::string_view with) {
    return request.complete_labels ? std::string(with) : sub_string_replace(text_of(label), needle, with);
}

}  // namespace

bool is_term_and_nonterm(const SearchRequest &request) {
    return request.complete_labels && !request.syn.empty() && request.lex.empty() &&
           known(request.syn, LabelKind::TERM) && known(request.syn, LabelKind::NONTERM);
}

Addresses init_adresses(const SearchRequest &request, const TermOrNonterm &ask) {
    if (request.syn.empty() && request.sem.empty() && request.lex.empty())
        return {{{"You need to specify at least one field!", false}}, std::nullopt};
    if (!request.complete_labels)
        return {{},
                Pattern::substring(unless_empty(request.syn), unless_empty(request.sem),
                                   unless_empty(request.lex))};
    ExactLabels labels;
    labels.resolve_category(request, ask);
    labels.resolve_tag(request.sem);
    labels.resolve_word(request.lex);
    return labels.take();
}

std::optional<std::string> cannot_replace(const SearchRequest &request, ReplaceChoice choice,
                                          std::string_view with) {
    if (choice == ReplaceChoice::semantics) {
        if (request.sem.empty()) return "No semantic tag to replace!";
        if (request.complete_labels) return refuse_tag(with);
        // A part of a tag may hold a single bracket; the mark of a word it cannot hold.
        if (with.find(START_LEX_TAG) != with.npos) return std::string(no_word_mark_in_tag);
        return std::nullopt;
    }
    if (request.syn.empty()) return "No syntactic  tag to replace!";
    if (with.empty()) return "Illegal empty replace field";
    return refuse_category(with);
}

std::optional<std::string> replace_at(const TreeEntry &tree, Node *node, const SearchRequest &request,
                                      ReplaceChoice choice, std::string_view with, TreeView *view) {
    const TreeCheckedScope checked(tree);
    if (choice == ReplaceChoice::syntax) {
        const std::string category = new_text(node->syn, request, request.syn, with);
        if (auto refusal = refuse_category(category)) return refusal;
        change_cat(node, category, view);
    } else {
        const std::string tag = new_text(node->sem, request, request.sem, with);
        if (auto refusal = refuse_tag(tag)) return refusal;
        new_label(node, tag, view);
    }
    return std::nullopt;
}

std::optional<ForestSearch::Match> ForestSearch::next() {
    constexpr int trees_between_questions = 8192;
    const int first = tree_;
    for (; tree_ < amount; ++tree_, start_ = nullptr) {
        const bool asks = may_go_on_ && tree_ != first && (tree_ - first) % trees_between_questions == 0;
        if (asks && !may_go_on_()) return std::nullopt;
        Node *found = next_match(pattern_, forest[static_cast<std::size_t>(tree_)].root, start_);
        if (!found) continue;
        start_ = found;
        return Match{tree_, found};
    }
    return std::nullopt;
}

}  // namespace brindle
