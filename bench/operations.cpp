// Google Benchmark of the core's operations on one corpus: reading, label changes, checks, searching, layout,
// proposing, writing in each format, coding. `items_per_second` counts nodes (changes, in new_label; pages,
// in page_turn).
//
//     bench-operations [Google Benchmark's options] [CORPUS]
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "corpus/formats.hpp"
#include "corpus/readtrees.hpp"
#include "display/layout.hpp"
#include "model/forest.hpp"
#include "model/input_file.hpp"
#include "model/pattern.hpp"
#include "model/traversal.hpp"
#include "propose/batch.hpp"
#include "stats/changes.hpp"
#include "stats/tables.hpp"

namespace {

using namespace brindle;

std::string corpus_text;
bool is_as_read = false;  // the forest is the corpus as it is in its file

void forget_corpus() {
    reset_forest();
    tables_init();
    is_as_read = false;
}

void read_again() {
    forget_corpus();
    read_forest(corpus_text, "");
}

// The corpus as it is in its file, whatever was done to it before. Nodes of a corpus that was read again lie
// less orderly in memory than those of the first one; so what changes nothing is measured first.
void have_it_as_read() {
    if (!is_as_read) read_again();
    is_as_read = true;
}

std::vector<Node *> all_nodes() {
    std::vector<Node *> nodes;
    for (const TreeEntry &tree : forest)
        for_each_in_subtree(tree.root, [&](Node *node) { nodes.push_back(node); });
    return nodes;
}

std::size_t nr_of_nodes() {
    return all_nodes().size();
}

void count_items(benchmark::State &state, std::size_t per_iteration) {
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(per_iteration));
}

void search_for(benchmark::State &state, const Pattern &pattern) {
    for (auto _ : state) {
        long found = 0;
        for (const TreeEntry &tree : forest)
            for (const Node *n = nullptr; (n = next_match(pattern, tree.root, n));) ++found;
        benchmark::DoNotOptimize(found);
    }
    count_items(state, nr_of_nodes());
}

void search_exact(benchmark::State &state) {
    have_it_as_read();
    const Node *const node = forest.front().root;
    search_for(state, Pattern::exact(node->syn, node->sem, nullptr));
}
BENCHMARK(search_exact)->Unit(benchmark::kMillisecond);

void search_substring(benchmark::State &state) {
    have_it_as_read();
    search_for(state, Pattern::substring("N", "a", "e"));
}
BENCHMARK(search_substring)->Unit(benchmark::kMillisecond);

constexpr int pixels_a_byte = 8;

void layout(benchmark::State &state) {
    have_it_as_read();
    const TreeView view;
    const LayoutParams params;
    ByteMeasure measure(pixels_a_byte);
    for (auto _ : state)
        for (TreeEntry &tree : forest) tree_layout(view, params, measure, tree);
    count_items(state, nr_of_nodes());
    forget_layout_owner(&view);
}
BENCHMARK(layout)->Unit(benchmark::kMillisecond);

struct Nowhere : TextSink {
    bool write(std::string_view) override { return true; }
};

// The text of the whole corpus in one format, without a disk. The information format is written without its
// checking program.
void write(benchmark::State &state, CorpusFormat format) {
    have_it_as_read();
    Nowhere sink;
    for (auto _ : state) {
        TreeWriter writer(format, false, sink, [](Node *) { return Formula{}; });
        for (int t = 0; t < amount; ++t) writer.write(t, t + 1);
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
    have_it_as_read();
    for (auto _ : state) {
        EncodingRun codes;
        std::size_t length = 0;
        for (int t = 0; t < amount; ++t)
            for_each_in_subtree(forest[static_cast<std::size_t>(t)].root, [&](const Node *node) {
                if (node->sem && (node->lex || node->dtrs))
                    length += (node->lex ? codes.codeerlex(node) : codes.codeer(node, t + 1)).size();
            });
        benchmark::DoNotOptimize(length);
    }
    count_items(state, nr_of_nodes());
}
BENCHMARK(coder)->Unit(benchmark::kMillisecond);

void check(benchmark::State &state) {
    have_it_as_read();
    is_as_read = false;
    for (auto _ : state)
        for (int t = 0; t < amount; ++t) set_checked(t, !forest[static_cast<std::size_t>(t)].checked);
    count_items(state, nr_of_nodes());
}
BENCHMARK(check)->Unit(benchmark::kMillisecond);

// Random nodes get the tag of another node.
void change_label(benchmark::State &state) {
    have_it_as_read();
    is_as_read = false;
    const std::vector<Node *> nodes = all_nodes();
    std::mt19937_64 random(1);
    const auto any_node = [&] { return nodes[random() % nodes.size()]; };
    for (auto _ : state) {
        state.PauseTiming();
        struct Change {
            Node *node;
            std::string tag;
            bool checked;
        };
        std::vector<Change> changes;
        for (int i = 0; i < 1000; ++i) {
            Node *const node = any_node();
            changes.push_back({node, std::string(text_of(any_node()->sem)), tree_of(node)->checked});
        }
        state.ResumeTiming();
        for (const Change &change : changes) {
            const TreeCheckedScope scope(change.checked);
            new_label(change.node, change.tag, nullptr);
        }
    }
    count_items(state, 1000);
}
BENCHMARK(change_label)->Name("new_label");

// Proposes the unchecked trees.
void propose(benchmark::State &state) {
    std::size_t nodes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        read_again();
        nodes = 0;
        std::vector<int> trees;
        for (int t = 0; t < amount; ++t) {
            const TreeEntry &tree = forest[static_cast<std::size_t>(t)];
            if (tree.checked) continue;
            trees.push_back(t);
            for_each_in_subtree(tree.root, [&](const Node *) { ++nodes; });
        }
        state.ResumeTiming();
        for (const int t : trees) propose_tree(t);
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
    forget_corpus();
    read_forest(text, "");
    const TreeView view;
    const LayoutParams params;
    CachedMeasure measure([](std::string_view label) { return static_cast<int>(label.size()) * 8; });
    for (auto _ : state) tree_layout(view, params, measure, forest.front());
    count_items(state, 1);
    forget_layout_owner(&view);
}
BENCHMARK(page_turn)->Unit(benchmark::kMicrosecond);

void read(benchmark::State &state) {
    for (auto _ : state) {
        state.PauseTiming();
        forget_corpus();
        state.ResumeTiming();
        read_forest(corpus_text, "");
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
    forget_corpus();
    return 0;
}
