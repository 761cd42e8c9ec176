// Google Benchmark of the core's operations on one corpus: reading, label changes, checks, searching, layout,
// proposing, writing in each format, coding. `items_per_second` counts nodes (changes, in set_tag; pages,
// in page_turn).
//
//     bench-operations [Google Benchmark's options] [CORPUS]
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "base/input_file.hpp"
#include "corpus/formats.hpp"
#include "corpus/reader.hpp"
#include "display/layout.hpp"
#include "edit/change.hpp"
#include "model/pattern.hpp"
#include "model/traversal.hpp"
#include "propose/propose.hpp"

namespace {

using namespace brindle;

std::string corpus_text;

// The corpus, read anew.
std::unique_ptr<Corpus> read_corpus_text() {
    auto corpus = std::make_unique<Corpus>();
    read_trees(*corpus, corpus_text);
    return corpus;
}

// The corpus as it is in its file, for what changes nothing.
Corpus &corpus_as_read() {
    static const std::unique_ptr<Corpus> corpus = read_corpus_text();
    return *corpus;
}

std::vector<Node *> all_nodes(const Corpus &corpus) {
    std::vector<Node *> nodes;
    for (const Tree &tree : corpus.trees)
        for_each_in_subtree(tree.root, [&](Node *node) { nodes.push_back(node); });
    return nodes;
}

std::size_t nr_of_nodes() {
    return all_nodes(corpus_as_read()).size();
}

void count_items(benchmark::State &state, std::size_t per_iteration) {
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(per_iteration));
}

// Units are tested once in each round, as one search does.
void search_for(benchmark::State &state, const Pattern &pattern) {
    const Corpus &corpus = corpus_as_read();
    for (auto _ : state) {
        long found = 0;
        Matches matches(corpus, pattern);
        for (const Tree &tree : corpus.trees)
            for (const Node *n = nullptr; (n = matches.next(tree.root, n));) ++found;
        benchmark::DoNotOptimize(found);
    }
    count_items(state, nr_of_nodes());
}

void search_exact(benchmark::State &state) {
    const Node *const node = corpus_as_read().tree(0).root;
    search_for(state, Pattern::exact(node->syn(), node->sem(), nullptr));
}
BENCHMARK(search_exact)->Unit(benchmark::kMillisecond);

void search_substring(benchmark::State &state) {
    search_for(state, Pattern::substring("N", "a", "e"));
}
BENCHMARK(search_substring)->Unit(benchmark::kMillisecond);

void search_in_vain(benchmark::State &state) {
    search_for(state, Pattern::substring("a text that no label has", std::nullopt, std::nullopt));
}
BENCHMARK(search_in_vain)->Unit(benchmark::kMillisecond);

constexpr int pixels_a_byte = 8;

void layout(benchmark::State &state) {
    const Corpus &corpus = corpus_as_read();
    const LayoutParams params;
    ByteMeasure measure(pixels_a_byte);
    for (auto _ : state)
        for (const Tree &tree : corpus.trees)
            benchmark::DoNotOptimize(lay_out(tree.root, params, measure, false).width);
    count_items(state, nr_of_nodes());
}
BENCHMARK(layout)->Unit(benchmark::kMillisecond);

struct Nowhere : TextSink {
    bool write(std::string_view) override { return true; }
};

// The text of the whole corpus in one format, without a disk. The information format is written without its
// checking program.
void write(benchmark::State &state, CorpusFormat format) {
    Corpus &corpus = corpus_as_read();
    Nowhere sink;
    for (auto _ : state) {
        TreeWriter writer(corpus, format, false, sink, [](Node *) { return Formula{}; });
        for (int t = 0; t < corpus.amount(); ++t) writer.write(t, t + 1);
        writer.flush();
    }
    count_items(state, nr_of_nodes());
}
BENCHMARK_CAPTURE(write, native, CorpusFormat::atis)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(write, dop, CorpusFormat::dop)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(write, dop2, CorpusFormat::dop2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(write, info, CorpusFormat::info)->Unit(benchmark::kMillisecond);

// The codes alone, of every tagged node.
void coder(benchmark::State &state) {
    Corpus &corpus = corpus_as_read();
    for (auto _ : state) {
        EncodingRun codes(corpus);
        std::size_t length = 0;
        for (int t = 0; t < corpus.amount(); ++t)
            for_each_in_subtree(corpus.tree(t).root, [&](const Node *node) {
                if (node->sem() && (node->lex() || node->dtrs()))
                    length += (node->lex() ? codes.codeerlex(node) : codes.codeer(node, t + 1)).size();
            });
        benchmark::DoNotOptimize(length);
    }
    count_items(state, nr_of_nodes());
}
BENCHMARK(coder)->Unit(benchmark::kMillisecond);

void check(benchmark::State &state) {
    const auto corpus = read_corpus_text();
    for (auto _ : state)
        for (int t = 0; t < corpus->amount(); ++t) set_checked(*corpus, t, !corpus->tree(t).checked);
    count_items(state, nr_of_nodes());
}
BENCHMARK(check)->Unit(benchmark::kMillisecond);

// Random nodes get the tag of another node.
void change_label(benchmark::State &state) {
    const auto corpus = read_corpus_text();
    const std::vector<Node *> nodes = all_nodes(*corpus);
    std::mt19937_64 random(1);
    const auto any_node = [&] { return nodes[random() % nodes.size()]; };
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<std::pair<Node *, std::string>> changes;
        for (int i = 0; i < 1000; ++i) changes.emplace_back(any_node(), text_of(any_node()->sem()));
        state.ResumeTiming();
        for (const auto &[node, tag] : changes) set_tag(*corpus, node, tag);
    }
    count_items(state, 1000);
}
BENCHMARK(change_label)->Name("set_tag");

// Proposes the unchecked trees.
void propose(benchmark::State &state) {
    std::size_t nodes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto corpus = read_corpus_text();
        nodes = 0;
        std::vector<int> trees;
        for (int t = 0; t < corpus->amount(); ++t) {
            const Tree &tree = corpus->tree(t);
            if (tree.checked) continue;
            trees.push_back(t);
            for_each_in_subtree(tree.root, [&](const Node *) { ++nodes; });
        }
        state.ResumeTiming();
        Proposer proposer(*corpus);
        for (const int t : trees) proposer.propose(t);
        state.PauseTiming();
    }
    count_items(state, nodes);
}
BENCHMARK(propose)->Unit(benchmark::kMillisecond);

// A bracketing of that many nodes with one to four daughters at each.
void append_tree(std::string &text, int nodes, std::mt19937 &random) {
    if (nodes == 1) {
        text += " NN|animal/dog";
        return;
    }
    text += " (NP|animal";
    for (int left = nodes - 1; left > 0;) {
        const int share = left <= 4 ? 1 : left / static_cast<int>(1 + random() % 4);
        append_tree(text, share, random);
        left -= share;
    }
    text += ")";
}

// The layout that turning to a tree of 1,000 nodes needs; the widths of its texts are known already, as they
// are in a window.
void page_turn(benchmark::State &state) {
    std::string text = "(";
    std::mt19937 random(1);
    append_tree(text, 1000, random);
    text += " )";
    Corpus corpus;
    read_trees(corpus, text);
    const LayoutParams params;
    CachedMeasure measure([](std::string_view label) { return static_cast<int>(label.size()) * 8; });
    for (auto _ : state) benchmark::DoNotOptimize(lay_out(corpus.tree(0).root, params, measure, false).width);
    count_items(state, 1);
}
BENCHMARK(page_turn)->Unit(benchmark::kMicrosecond);

void read(benchmark::State &state) {
    for (auto _ : state) {
        Corpus corpus;
        read_trees(corpus, corpus_text);
        state.PauseTiming();  // what it takes to free the corpus does not count
        benchmark::DoNotOptimize(corpus.amount());
        state.ResumeTiming();
    }
    count_items(state, nr_of_nodes());
}
BENCHMARK(read)->Unit(benchmark::kMillisecond);

// gum.trees where it lies beside the sources, else the example that comes with them.
std::string default_corpus() {
    const std::string top = BRINDLE_SOURCE_DIR;
    const std::string large = top + "/../shared/corpora/gum.trees";
    return std::filesystem::exists(large) ? large : top + "/examples/travel.trees";
}

// The coder's files land in the current directory: a directory of their own, removed at the end.
class OwnDirectory {
  public:
    OwnDirectory() {
        std::string name = std::filesystem::temp_directory_path() / "bench-operations.XXXXXX";
        if (!mkdtemp(name.data())) std::perror(name.c_str()), std::exit(1);
        name_ = name;
        std::filesystem::current_path(name_);
    }
    ~OwnDirectory() {
        std::filesystem::current_path("/");
        std::filesystem::remove_all(name_);
    }
    OwnDirectory(const OwnDirectory &) = delete;
    OwnDirectory &operator=(const OwnDirectory &) = delete;

  private:
    std::filesystem::path name_;
};

}  // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    if (argc > 2 || (argc == 2 && *argv[1] == '-'))
        return std::fputs("usage: bench-operations [--benchmark_...] [CORPUS]\n", stderr), 2;
    const std::string name = argc == 2 ? argv[1] : default_corpus();
    const InputFile file(name);
    if (!file.ok()) return std::perror(name.c_str()), 1;
    corpus_text = file.text();
    benchmark::AddCustomContext("corpus", name);
    const OwnDirectory directory;
    try {
        benchmark::RunSpecifiedBenchmarks();
    } catch (const FormatError &error) {
        return std::fprintf(stderr, "%s\n", error.message.c_str()), 1;
    }
    return 0;
}
