#include "display/information.hpp"

#include <fmt/format.h>

#include "corpus/cats.hpp"
#include "stats/statistics.hpp"

namespace brindle {
namespace {

std::string_view name_of(const Label *label) {
    return label ? label->view() : "(unlabeled)";
}

double percentage(int part, int whole) {
    return 100.0 * part / whole;
}

// The text of a display whose items run on over lines of at most 60 characters and pages of 7 lines.
// Separators belong to no line's length.
class WrappedText {
  public:
    WrappedText(std::string text, const MoreInfo &more) : text_(std::move(text)), more_(more) {}

    // False: the user has ended the display.
    bool append(std::string_view item, std::string_view separator) {
        if (line_length_ + item.size() > 60) {
            if (!break_line()) return false;
            line_length_ = 0;
        }
        line_length_ += item.size();
        text_.append(item).append(separator);
        return true;
    }

    std::string take() { return std::move(text_); }

  private:
    bool break_line() {
        if (++breaks_ < 7) {
            text_ += '\n';
            return true;
        }
        if (!more_(text_)) return false;
        text_.clear();
        breaks_ = 0;
        return true;
    }

    std::string text_;
    const MoreInfo &more_;
    std::size_t line_length_ = 0;
    int breaks_ = 0;
};

std::string text_of_context(const Statistics &statistics, const Context &context) {
    const Unit &mother = statistics.unit(context.mother);
    return fmt::format("\n\nSyntactic: {}, Semantic: {}\nDaughter nr.: {} of {}, Amount: {}",
                       name_of(mother.syn), name_of(mother.sem), context.dtr_nr, context.nr_of_dtrs,
                       context.checked_count);
}

}  // namespace

std::optional<std::string> create_syn_info(const Corpus &corpus, const Node *node, const MoreInfo &more) {
    Statistics &statistics = *corpus.statistics;
    const LabelEntry *e = statistics.category_entry(node->unit());
    std::string head = fmt::format(
        "Syntactic Tag: {}\n({})\n\nNumber of occurrences: {}\n\n{:.1f}% is annotated", name_of(e->name),
        transl(name_of(e->name), node->dtrs() != nullptr), e->count, percentage(e->checked_count, e->count));
    const Unit *u = statistics.first_of(e->pairs);
    if (!u || u->checked_count == 0) return head + "No checked occurrences";
    WrappedText text(head + "\n\nOccurs with the following semantic tags:\n", more);
    while (u && u->checked_count != 0) {
        const std::string item =
            fmt::format("{}{} : {}", u->sem ? " " : "", name_of(u->sem), u->checked_count);
        u = statistics.next_of_owner(u);
        if (!text.append(item, u ? ",    " : "")) return std::nullopt;
    }
    return text.take();
}

std::optional<std::string> create_sem_info(const Corpus &corpus, const Node *node, const MoreInfo &more) {
    Statistics &statistics = *corpus.statistics;
    const LabelEntry *e = statistics.tag_entry(node->unit());
    if (e->checked_count == 0) return "\n\nUnchecked semantic tag.";
    std::string head =
        fmt::format("Semantic tag: {}\n\nNumber of occurrences: {}", name_of(e->name), e->checked_count);
    const Unit *u = statistics.first_of(e->pairs);
    if (!u) return head;
    WrappedText text(head + "\n\nOccurs with the following syntactic tags:\n", more);
    while (u && u->checked_count > 0) {
        const std::string item = fmt::format("{} : {}", name_of(u->syn), u->checked_count);
        u = statistics.next_of_tag(u);
        if (!text.append(item, u ? ",   " : "")) return std::nullopt;
    }
    return text.take();
}

std::optional<std::string> create_lex_info(const Corpus &corpus, const Node *node, const MoreInfo &more) {
    Statistics &statistics = *corpus.statistics;
    const LexEntry *w = statistics.word_entry(node->unit());
    const Unit *u = statistics.first_of(w->units);
    if (!u || u->checked_count == 0) return "No checked annotations";
    std::string text = fmt::format(
        "\nWord: {}\n\nNumber of occurrences: {}\n\n{:.1f}% is annotated\n\nOccurs with the following tags:",
        name_of(w->name), w->count, percentage(w->checked_count, w->count));
    int lines = 0;
    for (; u && u->checked_count != 0; u = statistics.next_of_owner(u)) {
        text += fmt::format("\nSyntactic {}, Semantic {} : {}", name_of(u->syn), name_of(u->sem),
                            u->checked_count);
        if (++lines < 7) continue;
        if (!more(text)) return std::nullopt;
        text.clear();
        lines = 0;
    }
    return text;
}

std::optional<std::string> create_parent_info(const Corpus &corpus, const Node *node, InfoMode mode,
                                              const MoreInfo &more) {
    const Statistics &statistics = *corpus.statistics;
    const Unit *unit = mode == InfoMode::lex ? node->unit() : node->unit()->pair;
    std::uint32_t n = unit->contexts.first;
    // The checked ones come first.
    const auto is_checked = [&](std::uint32_t number) {
        return number != 0 && statistics.contexts[number].checked_count != 0;
    };
    if (!is_checked(n)) return node->mother() ? "Unchecked node" : "Root node";
    std::string text = "This type of node occurs with the following (checked) parents:";
    int lines = 0;
    while (is_checked(n)) {
        text += text_of_context(statistics, statistics.contexts[n]);
        lines += 3;
        n = statistics.contexts[n].by_unit.next;
        if (lines <= 6 || !is_checked(n)) continue;
        if (!more(text)) return std::nullopt;
        text.clear();
        lines = 0;
    }
    return text;
}

std::optional<std::string> information(const Corpus &corpus, const Node *node, InfoMode mode, bool control,
                                       const MoreInfo &more) {
    if (control) return create_parent_info(corpus, node, mode, more);
    switch (mode) {
        case InfoMode::sem:
            return create_sem_info(corpus, node, more);
        case InfoMode::lex:
            return create_lex_info(corpus, node, more);
        case InfoMode::nonterm:
        case InfoMode::term:
            return create_syn_info(corpus, node, more);
        case InfoMode::none:
            break;
    }
    return std::nullopt;
}

}  // namespace brindle
