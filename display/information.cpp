#include "display/information.hpp"

#include <fmt/format.h>

#include "corpus/cats.hpp"
#include "stats/links.hpp"

namespace brindle {
namespace {

std::string_view name_of(const Label *label) {
    return label ? label->view() : "(unlabeled)";
}
std::string_view name_of(const LabelEntry *entry) {
    return name_of(entry->name);
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

const Parents *parents_of_word(const Node *node) {
    const LexLink *link = search_lexlink(word_entry(node), category_entry(node), tag_entry(node));
    return link ? &link->parents : nullptr;
}

const Parents *parents_of_category(const Node *node) {
    const LabelLink *link = search_link(category_entry(node), tag_entry(node));
    return link ? &link->parents : nullptr;
}

std::string text_of_context(const ParentRecord &r) {
    return fmt::format("\n\nSyntactic: {}, Semantic: {}\nDaughter nr.: {} of {}, Amount: {}", name_of(r.syn),
                       name_of(r.sem), r.dtr_nr, r.nr_of_dtrs, r.checked_count);
}

}  // namespace

std::optional<std::string> create_syn_info(const Node *node, const MoreInfo &more) {
    const LabelEntry *e = category_entry(node);
    std::string head = fmt::format(
        "Syntactic Tag: {}\n({})\n\nNumber of occurrences: {}\n\n{:.1f}% is annotated", name_of(e),
        transl(name_of(e), node->dtrs != nullptr), e->count, percentage(e->checked_count, e->count));
    const LabelLink *link = e->links.first();
    if (!link || link->checked_count == 0) return head + "No checked occurrences";
    WrappedText text(head + "\n\nOccurs with the following semantic tags:\n", more);
    for (; link && link->checked_count != 0; link = link->next) {
        const std::string item =
            fmt::format("{}{} : {}", link->label->name ? " " : "", name_of(link->label), link->checked_count);
        if (!text.append(item, link->next ? ",    " : "")) return std::nullopt;
    }
    return text.take();
}

std::optional<std::string> create_sem_info(const Node *node, const MoreInfo &more) {
    const LabelEntry *e = tag_entry(node);
    if (e->checked_count == 0) return "\n\nUnchecked semantic tag.";
    std::string head =
        fmt::format("Semantic tag: {}\n\nNumber of occurrences: {}", name_of(e), e->checked_count);
    const LabelLink *link = e->links.first();
    if (!link) return head;
    WrappedText text(head + "\n\nOccurs with the following syntactic tags:\n", more);
    for (; link && link->checked_count > 0; link = link->next) {
        const std::string item = fmt::format("{} : {}", name_of(link->label), link->checked_count);
        if (!text.append(item, link->next ? ",   " : "")) return std::nullopt;
    }
    return text.take();
}

std::optional<std::string> create_lex_info(const Node *node, const MoreInfo &more) {
    const LexEntry *w = word_entry(node);
    const LexLink *link = w->links.first();
    if (!link || link->checked_count == 0) return "No checked annotations";
    std::string text = fmt::format(
        "\nWord: {}\n\nNumber of occurrences: {}\n\n{:.1f}% is annotated\n\nOccurs with the following tags:",
        w->name->view(), w->count, percentage(w->checked_count, w->count));
    int lines = 0;
    for (; link; link = link->next) {
        if (link->checked_count == 0) continue;
        text += fmt::format("\nSyntactic {}, Semantic {} : {}", name_of(link->syn), name_of(link->sem),
                            link->checked_count);
        if (++lines < 7) continue;
        if (!more(text)) return std::nullopt;
        text.clear();
        lines = 0;
    }
    return text;
}

std::optional<std::string> create_parent_info(const Node *node, InfoMode mode, const MoreInfo &more) {
    const Parents *parents = mode == InfoMode::lex ? parents_of_word(node) : parents_of_category(node);
    const ParentRecord *record = parents ? parents->first() : nullptr;
    if (!record || record->checked_count == 0) return node->mother ? "Unchecked node" : "Root node";
    std::string text = "This type of node occurs with the following (checked) parents:";
    int lines = 0;
    for (; record && record->checked_count != 0; record = record->next) {
        text += text_of_context(*record);
        lines += 3;
        const bool goes_on = record->next && record->next->checked_count != 0;
        if (lines <= 6 || !goes_on) continue;
        if (!more(text)) return std::nullopt;
        text.clear();
        lines = 0;
    }
    return text;
}

std::optional<std::string> information(const Node *node, InfoMode mode, bool control, const MoreInfo &more) {
    if (control) return create_parent_info(node, mode, more);
    switch (mode) {
        case InfoMode::sem:
            return create_sem_info(node, more);
        case InfoMode::lex:
            return create_lex_info(node, more);
        case InfoMode::nonterm:
        case InfoMode::term:
            return create_syn_info(node, more);
        case InfoMode::none:
            break;
    }
    return std::nullopt;
}

}  // namespace brindle
