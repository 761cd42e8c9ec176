#include "corpus/reader.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>

#include <fmt/printf.h>

#include "base/error.hpp"
#include "base/input_file.hpp"
#include "base/text.hpp"

namespace brindle {
namespace {

// Bytes of the graphic character at p; 0 for a blank.
std::size_t graphic_at(const char *p, const char *end) {
    const CharClass c = class_of(*p);
    return c == BLANK ? 0 : c == HIGH ? graphic_length(p, end) : 1;
}

// The end of the line at p: behind its newline, or the end of the text.
const char *past_line(const char *p, const char *end) {
    const void *newline = std::memchr(p, '\n', static_cast<std::size_t>(end - p));
    return newline ? static_cast<const char *>(newline) + 1 : end;
}

bool is_comment_line(const char *p, const char *end) {
    for (; p != end && *p != '\n'; ++p) {
        const CharClass c = class_of(*p);
        if (c == OPEN || c == CLOSE || *p == '*') return false;
        if (graphic_at(p, end)) return true;
    }
    return false;
}

std::string message_of(FaultKind kind, int line) {
    const auto message = [line](const char *format) { return fmt::sprintf(format, line); };
    switch (kind) {
        case FaultKind::end_of_text:
            return "Unexpected end of file";
        case FaultKind::end_in_label:
            return message("Unexpected end of file on line %d");
        case FaultKind::no_tag:
            return message("Semantic tag expected in line %d");
        case FaultKind::no_word:
            return message("Lexical item expected in line %d");
        case FaultKind::open_in_category:
            return message("Unexpected '(' in line %d");
        case FaultKind::unbalanced_tag:
            return message("Unmatched '(' in semantic tag, line %d");
        case FaultKind::two_tags:
            return message("Two semantic tags on one node, line %d");
        case FaultKind::two_words:
            return message("Two lexical items on one node, line %d");
        case FaultKind::category_too_long:
            return message("Syntactic category too long, line %d");
        case FaultKind::tag_too_long:
            return message("Semantic tag too long, line %d");
        case FaultKind::word_too_long:
            return message("Lexical item too long, line %d");
        case FaultKind::word_with_daughters:
            return message("Lexical item on a node with daughters, line %d");
        case FaultKind::none:
        case FaultKind::no_category:
        case FaultKind::word_in_brackets:
            break;
    }
    return message("Empty node encountered in line %d");
}

// So many contexts are counted at once.
constexpr std::size_t contexts_at_once = 256;

}  // namespace

int count_trees(std::string_view text) {
    const char *p = text.data(), *const end = p + text.size();
    int count = 0, depth = 0, line = 1, start_line = 1;
    const auto fail = [&](std::string message, const char *at) {
        throw FormatError{std::move(message), place_in(text, at)};
    };
    const auto skip_comments = [&] {
        while (depth == 0 && p != end && is_comment_line(p, end)) {
            p = past_line(p, end);
            line += p[-1] == '\n';
        }
    };
    skip_comments();
    while (p != end) {
        const char c = *p++;
        if (c == '(') {
            if (depth++ == 0) start_line = line;
        } else if (c == '\n') {
            ++line;
            skip_comments();
        } else if (c == ')') {
            if (--depth == 0) ++count;
            if (depth < 0)
                fail(fmt::sprintf("Unmatched '%c', somewhere between line %d and line %d", ')', start_line,
                                  line),
                     p - 1);
        }
    }
    if (depth != 0)
        fail(fmt::sprintf("Unmatched '%c' in tree nr %d, starting at line %d", '(', count + 1, start_line),
             p);
    return count;
}

CorpusReader::CorpusReader(Corpus &corpus, std::string_view text)
    : corpus_(corpus),
      text_(text),
      p_(text.data()),
      end_(p_ + text.size()),
      builder_(corpus),
      counting_(corpus) {}

// Counting all brackets comes before any other complaint. But in a text that is laid out as usual the reader
// meets each tree's outer brackets itself; so it counts only when it meets something else.
void CorpusReader::count_trees_exactly() {
    if (amount_ < 0) amount_ = count_trees(text_);
}

void CorpusReader::fail(const SyntaxFault &fault) {
    count_trees_exactly();
    const TextPlace place = place_in(text_, fault.at);
    throw FormatError{message_of(fault.kind, place.line), place};
}

bool CorpusReader::read_some(std::size_t bytes) {
    const char *const until = p_ + std::min(bytes, static_cast<std::size_t>(end_ - p_));
    bool checked = false;
    do {
        if (corpus_.amount() == amount_ || !open_tree(checked)) return false;
        if (corpus_.amount() == amount_) return false;  // counted meanwhile
        read_tree(checked);
    } while (p_ < until);
    return true;
}

// Looks for the next tree and stops behind its "(". Sets `checked` to whether a "*" stood before it. False:
// there is none.
bool CorpusReader::open_tree(bool &checked) {
    checked = false;
    for (; p_ != end_; ++p_) {
        const char c = *p_;
        if (c == '\n') {
            at_line_start_ = true;
        } else if (c == '(' || c == '*' || graphic_at(p_, end_)) {
            if (after_root_ && c != ')') count_trees_exactly();
            if (c == '(') return ++p_, true;
            if (c == '*') {
                checked = true;
                at_line_start_ = after_root_ = false;
            } else {
                pass_line();
                --p_;
            }
        }
    }
    if (after_root_) count_trees_exactly();
    return false;
}

// Passes the rest of a line outside of trees, from its next graphic character on: a comment, or the bracket
// that closes a tree and what stands behind it.
void CorpusReader::pass_line() {
    const char *const start = p_;
    p_ = past_line(p_, end_);
    const bool closes = *start == ')';
    if (closes && !after_root_) count_trees_exactly();
    const std::string_view rest(start + closes, p_);
    if ((closes || !at_line_start_) && rest.find_first_of("()") != rest.npos) count_trees_exactly();
    after_root_ = false;
    at_line_start_ = true;
}

void CorpusReader::read_tree(bool checked) {
    const char *const start = skip_blanks(p_, end_);
    const SyntaxFault fault = builder_.read(p_, end_, corpus_.amount());
    if (fault.kind != FaultKind::none) fail(fault);
    corpus_.trees.push_back({builder_.top(), checked, false});
    count(builder_.tree(), checked);
    after_root_ = *start == '(' || p_[-1] != ')';  // a bare root may be ended by the bracket around it
    at_line_start_ = p_[-1] == '\n';
}

// Mothers' contexts come from the last daughter to the first.
void CorpusReader::count(const FlatTree &tree, bool checked) {
    for (const std::uint32_t place : tree.completed) {
        const FlatNode &node = tree.nodes[place];
        counting_.count_node(node.unit, checked);
        for (std::uint32_t d = node.last_dtr; d != FlatNode::none; d = tree.nodes[d].left)
            counting_.record_context(tree.nodes[d].unit, node.unit, tree.nodes[d].position, node.nr_of_dtrs,
                                     checked);
    }
    if (counting_.waiting() >= contexts_at_once) counting_.flush_contexts();
}

void read_trees(Corpus &corpus, std::string_view text) {
    CorpusReader reader(corpus, text);
    while (reader.read_some(text.size())) {
    }
    reader.finish();
}

// ---------------------------------------------------------------- a file

namespace {

// The progress line on standard error; shown only once the reading has lasted half a second, and only on a
// terminal.
class ReadingProgress {
  public:
    explicit ReadingProgress(const std::string &name) : name_(name) {}
    ~ReadingProgress() {
        if (drawn_) fmt::print(stderr, "\r\033[K");
    }
    void show(int trees, std::size_t bytes, std::size_t all) {
        if (Clock::now() - started_ < std::chrono::milliseconds(500)) return;
        fmt::print(stderr, "\rReading {}: {} trees, {} %", visible(name_), trees, 100 * bytes / all);
        drawn_ = true;
    }

  private:
    using Clock = std::chrono::steady_clock;
    const std::string &name_;
    bool drawn_ = false;
    Clock::time_point started_ = Clock::now();
};

// So much is read between two looks at the clock.
constexpr std::size_t bytes_at_once = 1 << 20;

void warn_of_high_bytes() {
    if (take_high_byte_warning())
        fmt::print(
            stderr,
            "Warning: the corpus holds characters that this locale does not know; they are read as blanks.\n"
            "Set LC_CTYPE to a locale that knows them, for example C.UTF-8.\n");
}

}  // namespace

void read_corpus(Corpus &corpus, const std::string &name, bool show_progress) {
    struct stat status = {};
    if (stat(name.c_str(), &status) != 0) system_error_exit(name);
    const InputFile file(name);
    if (!file.ok() && errno == EISDIR) directory_exit(name);
    if (!file.ok()) error(fmt::sprintf("can't open %s ...", name));
    corpus.file_time = file.modified();
    show_progress = show_progress && isatty(STDERR_FILENO);
    try {
        CorpusReader reader(corpus, file.text());
        ReadingProgress progress(name);
        while (reader.read_some(bytes_at_once))
            if (show_progress) progress.show(corpus.amount(), reader.bytes_read(), file.text().size());
        reader.finish();
    } catch (const FormatError &fault) {
        error(fault.message);
    }
    warn_of_high_bytes();
}

}  // namespace brindle
