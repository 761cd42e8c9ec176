#include "app/batch/session.hpp"

#include <fmt/format.h>

#include "app/batch/shell.hpp"
#include "corpus/lattices.hpp"
#include "corpus/reader.hpp"
#include "corpus/writetrees.hpp"

namespace brindle::batch {

Session::Session(const Options &given) : options(given) {
    read_corpus(corpus, options.corpus, !options.quiet);
    corpus.name = options.corpus;
    if (!options.wordgraphs.empty()) read_wordgraphs(corpus, options.wordgraphs);
}

int Session::tree_index(int number) const {
    if (number < 1 || number > corpus.amount())
        throw UsageError{fmt::format("no tree {} in this corpus: it has {}", number, corpus.amount())};
    return number - 1;
}

SelectionChoice Session::selection_choice() const {
    SelectionChoice choice;
    choice.types = options.trees == "checked"     ? TreeTypes::checked
                   : options.trees == "unchecked" ? TreeTypes::unchecked
                                                  : TreeTypes::both;
    if (options.from) tree_index(*options.from);
    if (options.to) tree_index(*options.to);
    choice.from = options.from.value_or(1);
    choice.to = options.to.value_or(corpus.amount());
    if (choice.from > choice.to && corpus.amount() > 0)
        throw UsageError{fmt::format("--from {} is behind --to {}", choice.from, choice.to)};
    choice.random = options.random.has_value();
    choice.size = options.random.value_or(0);
    choice.seed = options.seed;
    return choice;
}

std::vector<int> Session::selected_trees() const {
    return select_trees(corpus, selection_choice());
}

int Session::put_out(std::string_view text) const {
    return batch::put_out(options.output, text);
}

int Session::put_out_corpus() const {
    return write_to(options.output, [&](TextSink &sink) { return save_corpus(corpus, sink); });
}

}  // namespace brindle::batch
