#include "display/search.hpp"

#include <fmt/format.h>

#include "base/limits.hpp"
#include "base/text.hpp"
#include "edit/change.hpp"
#include "edit/label_rules.hpp"
#include "stats/statistics.hpp"

namespace brindle {
namespace {

// The resolved fields of an exact search, and what was not found.
class ExactLabels {
  public:
    explicit ExactLabels(const Statistics &statistics) : statistics_(statistics) {}

    void resolve_category(const SearchRequest &request, const TermOrNonterm &ask) {
        if (request.syn.empty()) return;
        const LabelEntry *term = statistics_.find(request.syn, LabelKind::TERM);
        const LabelEntry *nonterm = statistics_.find(request.syn, LabelKind::NONTERM);
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
        const LabelEntry *entry = statistics_.find(name, LabelKind::SEM);
        if (entry)
            sem_ = entry->name;
        else if (!messages_.empty())
            miss(fmt::format("Neither does \"{}\"", name));
        else
            miss(fmt::format("Semantic label \"{}\" does not occur in this corpus", name));
    }

    void resolve_word(const std::string &name) {
        if (name.empty()) return;
        const LexEntry *entry = statistics_.find_word(name);
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

    const Statistics &statistics_;
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

bool is_term_and_nonterm(const Corpus &corpus, const SearchRequest &request) {
    return request.complete_labels && !request.syn.empty() && request.lex.empty() &&
           corpus.statistics->find(request.syn, LabelKind::TERM) &&
           corpus.statistics->find(request.syn, LabelKind::NONTERM);
}

Addresses init_adresses(const Corpus &corpus, const SearchRequest &request, const TermOrNonterm &ask) {
    if (request.syn.empty() && request.sem.empty() && request.lex.empty())
        return {{{"You need to specify at least one field!", false}}, std::nullopt};
    if (!request.complete_labels)
        return {{},
                Pattern::substring(unless_empty(request.syn), unless_empty(request.sem),
                                   unless_empty(request.lex))};
    ExactLabels labels(*corpus.statistics);
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

std::optional<std::string> replace_at(Corpus &corpus, Node *node, const SearchRequest &request,
                                      ReplaceChoice choice, std::string_view with) {
    if (choice == ReplaceChoice::syntax)
        return set_category(corpus, node, new_text(node->syn(), request, request.syn, with));
    return set_tag(corpus, node, new_text(node->sem(), request, request.sem, with));
}

std::optional<CorpusSearch::Match> CorpusSearch::next() {
    constexpr int trees_between_questions = 8192;
    const int first = tree_;
    for (; tree_ < corpus_.amount() && matches_.any(); ++tree_, start_ = nullptr) {
        const bool asks = may_go_on_ && tree_ != first && (tree_ - first) % trees_between_questions == 0;
        if (asks && !may_go_on_()) return std::nullopt;
        Node *found = matches_.next(corpus_.tree(tree_).root, start_);
        if (!found) continue;
        start_ = found;
        return Match{tree_, found};
    }
    return std::nullopt;
}

}  // namespace brindle
