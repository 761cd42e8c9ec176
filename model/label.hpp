#pragma once
// The text of a label (category, tag or word), interned once and for good.
//
// A node names its labels by reference to these records. Each record knows the label's place in the tables of
// stats/, so nobody on the way from a node to its statistics hashes or compares a string.
#include <cstdint>
#include <span>
#include <string_view>

namespace brindle {

struct LabelEntry;
struct LexEntry;

// The kinds of label kept in `table`; the numbers are part of the interface (displays use them as modes).
enum class LabelKind : int { SEM = 2, NONTERM = 4, TERM = 5 };

// So many bytes from the start of a label's text may be read whatever its size (copy_label does).
inline constexpr std::size_t label_overrun = 16;

struct Label {
    std::uint32_t bucket;  // hash(text), 0..1998
    std::uint32_t size;    // bytes of text, its terminating zero not counted
    LabelEntry *sem;       // this text's entry as a semantic tag; null: it has none now
    LabelEntry *nonterm;   // as a category of nodes without a word
    LabelEntry *term;      // as a category of nodes with a word
    LexEntry *word;        // as a lexical item

    // The text; a zero byte follows it.
    const char *text() const { return reinterpret_cast<const char *>(this + 1); }
    std::string_view view() const { return {text(), size}; }

    // The place of this text's entry of one kind.
    LabelEntry *&entry(LabelKind kind) {
        return kind == LabelKind::SEM ? sem : kind == LabelKind::TERM ? term : nonterm;
    }
};

// How many buckets each label table has.
inline constexpr std::uint32_t nr_of_buckets = 1999;

// The bucket of a string: the PJW hash in its ELF form (Aho, Sethi and Ullman 1986, section 7.6; bytes from
// 0x80 up count as negative), modulo 1999. The empty string, which stands for "no label", has bucket 0.
std::uint32_t hash(std::string_view text);

// The one record of a text, made on its first use; it lives until the program ends.
Label *intern(std::string_view text);

// A text that is to be interned, and where its record goes. Made a while before, for the index is fetched
// meanwhile.
struct Unnamed {
    Unnamed(std::string_view text, Label **place);
    std::string_view text;
    Label **place;
    std::uint32_t hash;
};

// Interns the texts in their order.
void intern(std::span<const Unnamed> texts);

// Asks memory for what interning these texts will look at; some time before it.
void prefetch(std::span<const Unnamed> texts);

// The record of a text if it has one, else null. Makes nothing.
Label *find_label(std::string_view text);

// Bytes held by all interned labels (for bench/).
std::size_t label_bytes();

// For output of optional labels: the text, or "" for null.
inline std::string_view text_of(const Label *label) {
    return label ? label->view() : std::string_view();
}

}  // namespace brindle
