// Times the work on one whole corpus, in this process: reading, then searching, label changes and checks, or,
// if a file is named for it, writing in the native and the DOP formats. Prints tab-separated lines: name,
// value. bench/run makes the corpora and compares.
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "base/input_file.hpp"
#include "corpus/reader.hpp"
#include "corpus/saving.hpp"
#include "edit/change.hpp"
#include "model/pattern.hpp"
#include "model/traversal.hpp"

namespace {

using namespace brindle;

// Counts this process's own seconds on a processor, so that others on the machine disturb as little as they
// can.
class Stopwatch {
  public:
    double seconds() const { return now() - start_; }

  private:
    static double now() {
        std::timespec time = {};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    }
    double start_ = now();
};

void print(const char *name, double value) {
    std::printf("%s\t%.9g\n", name, value);
    std::fflush(stdout);
}

// Bytes of memory of this process that no file backs.
double anonymous_bytes() {
    std::FILE *file = std::fopen("/proc/self/status", "r");
    char line[256];
    long kilobytes = 0;
    while (file && std::fgets(line, sizeof line, file))
        if (std::sscanf(line, "RssAnon: %ld", &kilobytes) == 1) break;
    if (file) std::fclose(file);
    return static_cast<double>(kilobytes) * 1024;
}

std::vector<Node *> all_nodes(const Corpus &corpus) {
    std::vector<Node *> nodes;
    for (const Tree &tree : corpus.trees)
        for_each_in_subtree(tree.root, [&](Node *node) { nodes.push_back(node); });
    return nodes;
}

// Gives n random nodes a tag: three in four one that another random node has, else a new one.
double seconds_of_label_changes(Corpus &corpus, const std::vector<Node *> &nodes, int n) {
    std::mt19937_64 random(1);
    const auto any_node = [&] { return nodes[random() % nodes.size()]; };
    std::vector<std::pair<Node *, std::string>> changes;
    for (int i = 0; i < n; ++i) {
        Node *node = any_node();
        const Label *tag = any_node()->sem();
        changes.emplace_back(node,
                             tag && i % 4 ? std::string(tag->view()) : "new" + std::to_string(i % 1000));
    }
    const Stopwatch watch;
    for (const auto &[node, tag] : changes) set_tag(corpus, node, tag);
    return watch.seconds();
}

double seconds_of_checks(Corpus &corpus, int n) {
    std::mt19937_64 random(2);
    std::vector<int> trees;
    for (int i = 0; i < n; ++i) trees.push_back(static_cast<int>(random() % corpus.trees.size()));
    const Stopwatch watch;
    for (const int t : trees) set_checked(corpus, t, !corpus.tree(t).checked);
    return watch.seconds();
}

// Of all matches of a pattern.
double seconds_of_search(const Corpus &corpus, const Pattern &pattern) {
    const Stopwatch watch;
    long found = 0;
    Matches matches(corpus, pattern);
    if (matches.any())
        for (const Tree &tree : corpus.trees)
            for (const Node *n = matches.next(tree.root, nullptr); n; n = matches.next(tree.root, n)) ++found;
    const double seconds = watch.seconds();
    if (found > 0) print("search_matches", static_cast<double>(found));
    return seconds;
}

// Searches of a corpus as it was read; of a substring that no category, tag or word has, the slowest.
void search_all(const Corpus &corpus) {
    const std::string text = "a text that no label has";
    const auto of = [&](const Pattern &pattern) { return seconds_of_search(corpus, pattern); };
    print("search_seconds", of(Pattern::substring("NP", "a", std::nullopt)));
    print("vain_search_seconds", std::max({of(Pattern::substring(text, std::nullopt, std::nullopt)),
                                           of(Pattern::substring(std::nullopt, text, std::nullopt)),
                                           of(Pattern::substring(std::nullopt, std::nullopt, text))}));
}

// What changes take. Writing is timed in a process of its own: it would meet the changed labels.
void change_all(Corpus &corpus, const std::vector<Node *> &nodes) {
    constexpr int nr_of_changes = 1000000;
    print("set_tag_seconds", seconds_of_label_changes(corpus, nodes, nr_of_changes) / nr_of_changes);
    const int nr_of_checks = std::min(corpus.amount(), 20000);
    const double checks = seconds_of_checks(corpus, nr_of_checks);
    print("check_seconds_per_node",
          checks * corpus.amount() / nr_of_checks / static_cast<double>(nodes.size()));
    print("vain_search_after_changes_seconds",
          seconds_of_search(corpus,
                            Pattern::substring("a text that no label has", std::nullopt, std::nullopt)));
}

// The best of some runs, on the processor and on the clock.
class Best {
  public:
    explicit Best(const char *name) : name_(name) {}
    ~Best() {
        print((std::string(name_) + "_seconds").c_str(), seconds_);
        print((std::string(name_) + "_elapsed").c_str(), elapsed_);
    }
    Best(const Best &) = delete;
    Best &operator=(const Best &) = delete;

    // Runs the function; false if it returned false.
    template <class Function>
    bool run(Function &&function) {
        const auto start = std::chrono::steady_clock::now();
        const Stopwatch watch;
        if (!function()) return false;
        seconds_ = std::min(seconds_, watch.seconds());
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        elapsed_ = std::min(elapsed_, elapsed.count());
        return true;
    }

  private:
    const char *name_;
    double seconds_ = std::numeric_limits<double>::infinity();
    double elapsed_ = std::numeric_limits<double>::infinity();
};

bool is_saved(const SaveResult &result) {
    if (result.status == SaveStatus::saved) return true;
    return std::fprintf(stderr, "%s\n", result.reason.c_str()), false;
}

// Copies a file in pieces of a megabyte, and waits until the copy is on disk.
bool copy_file(const std::string &from, const std::string &name) {
    const InputFile file(from);
    std::string_view bytes = file.text();
    const int fd = open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (fd < 0) return std::perror(name.c_str()), false;
    while (!bytes.empty()) {
        const ssize_t written = write(fd, bytes.data(), std::min<std::size_t>(bytes.size(), 1 << 20));
        if (written <= 0) return std::perror(name.c_str()), close(fd), false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    const bool synced = fsync(fd) == 0;
    close(fd);
    return synced;
}

// Writes the corpus to the file in one format after another, and copies the saved file, in turns: how fast
// the system takes bytes depends on what it has done before. No file is there before: replacing one would
// take time for giving its memory back. Side files land in the current directory.
bool write_all(Corpus &corpus, const std::string &name) {
    const std::string copy = name + ".copy";
    unlink(name.c_str());
    Best save("save"), copying("copy"), dop("dop"), dop2("dop2");
    for (int i = 0; i < 4; ++i) {
        if (!save.run([&] { return is_saved(write_corpus(corpus, name)); })) return false;
        if (!copying.run([&] { return copy_file(name, copy); })) return false;
        unlink(copy.c_str());
        unlink(name.c_str());
        if (!dop.run([&] { return is_saved(save_as(corpus, name, CorpusFormat::dop)); })) return false;
        unlink(name.c_str());
        if (!dop2.run([&] { return is_saved(save_as(corpus, name, CorpusFormat::dop2)); })) return false;
        unlink(name.c_str());
    }
    return true;
}

}  // namespace

int main(int argc, char **argv) {
    if (argc != 2 && argc != 3) return std::fputs("usage: bench-corpus FILE [SAVE-TO]\n", stderr), 2;
    const double before = anonymous_bytes();
    const Stopwatch reading;
    Corpus corpus;
    read_corpus(corpus, argv[1]);
    print("read_seconds", reading.seconds());
    const double bytes = anonymous_bytes() - before;
    const std::vector<Node *> nodes = all_nodes(corpus);
    const auto nr_of_nodes = static_cast<double>(nodes.size());
    print("nodes", nr_of_nodes);
    print("bytes_per_node", bytes / nr_of_nodes);
    if (nodes.empty()) return 0;
    if (argc == 3) {
        if (!write_all(corpus, argv[2])) return 1;
    } else {
        search_all(corpus);
        change_all(corpus, nodes);
    }
    std::fflush(stdout);
    _Exit(0);  // the system frees a million trees faster than we do
}
