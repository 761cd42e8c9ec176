#include "corpus/lattices.hpp"

#include <cerrno>

#include <fmt/printf.h>

#include "base/error.hpp"
#include "base/input_file.hpp"

namespace brindle {
namespace {

// A longer line counts as several: marks are looked for at the start of each of its pieces.
constexpr std::size_t longest_line = 255;

// Takes the first line, with its newline, off the text.
std::string_view take_line(std::string_view &text) {
    const std::string_view piece = text.substr(0, longest_line);
    const std::size_t newline = piece.find('\n');
    const std::string_view line = piece.substr(0, newline == std::string_view::npos ? newline : newline + 1);
    text.remove_prefix(line.size());
    return line;
}

// Passes lines up to one that begins with the mark; that line, or an empty one at the end of the text.
std::string_view pass_to(std::string_view mark, std::string_view &text) {
    while (!text.empty())
        if (const std::string_view line = take_line(text); line.starts_with(mark)) return line;
    return {};
}

}  // namespace

std::string attach_wordgraphs(Corpus &corpus, std::string_view text) {
    for (int t = 0; t < corpus.amount(); ++t) {
        const std::string_view first = pass_to("BEGIN_LATTICE", text);
        if (first.empty())
            return fmt::sprintf("Wordgraphfile is too short! Read %d of required %d", t, corpus.amount() + 1);
        const std::string_view last = pass_to("END_LATTICE", text);
        if (last.empty()) return fmt::sprintf("Unexpected end of file in word graph %d", t + 1);
        corpus.wordgraphs[t] = '\n' + std::string(first.data(), last.data() + last.size());
    }
    return {};
}

void read_wordgraphs(Corpus &corpus, const std::string &name) {
    const InputFile file(name);
    if (!file.ok() && errno == EISDIR) directory_exit(name);
    if (!file.ok()) system_error_exit(name);
    if (const std::string fault = attach_wordgraphs(corpus, file.text()); !fault.empty()) error(fault);
}

}  // namespace brindle
