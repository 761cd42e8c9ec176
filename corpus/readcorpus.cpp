// Reading a whole corpus file, both passes.
#include <unistd.h>

#include <sys/stat.h>
#include <cerrno>
#include <chrono>

#include <fmt/printf.h>

#include "corpus/readtrees.hpp"
#include "model/error.hpp"
#include "model/input_file.hpp"
#include "model/text.hpp"
#include "stats/tables.hpp"

namespace brindle {
namespace {

// The progress line on standard error; shown only once the reading has lasted half a second, and only on a
// terminal.
class ReadingProgress {
  public:
    explicit ReadingProgress(const std::string &name)
        : name_(name), shows_(!name.empty() && isatty(STDERR_FILENO)) {}
    ~ReadingProgress() {
        if (drawn_) fmt::print(stderr, "\r\033[K");
    }
    void show(int tree) {
        if (!shows_ || tree % 4096 != 0 || Clock::now() - started_ < std::chrono::milliseconds(500)) return;
        fmt::print(stderr, "\rReading {}: {} of {} trees", visible(name_), tree, amount);
        drawn_ = true;
    }

  private:
    using Clock = std::chrono::steady_clock;
    const std::string &name_;
    bool shows_;
    bool drawn_ = false;
    Clock::time_point started_ = Clock::now();
};

void warn_of_high_bytes() {
    if (take_high_byte_warning())
        fmt::print(
            stderr,
            "Warning: the corpus holds characters that this locale does not know; they are read as blanks.\n"
            "Set LC_CTYPE to a locale that knows them, for example C.UTF-8.\n");
}

}  // namespace

void read_forest(std::string_view text, const std::string &name) {
    amount = trees(text);
    forest.clear();
    forest.resize(static_cast<std::size_t>(amount));
    tables_init();
    ReadingProgress progress(name);
    BulkStoring bulk;
    TreeReader reader(text, &bulk);
    for (int t = 0; t < amount; ++t) {
        TreeEntry &tree = forest[static_cast<std::size_t>(t)];
        if (!reader.eat_until_open(tree.checked)) {
            amount = t;
            forest.resize(static_cast<std::size_t>(t));
            break;
        }
        const TreeCheckedScope scope(tree);
        tree.root = reader.read_tree();
        register_root(tree.root, t);
        progress.show(t);
    }
    warn_of_high_bytes();
}

void readcorpus(const std::string &name, bool show_progress) {
    struct stat status = {};
    if (stat(name.c_str(), &status) != 0) system_error_exit(name);
    const InputFile file(name);
    if (!file.ok() && errno == EISDIR) directory_exit(name);
    if (!file.ok()) error(fmt::sprintf("can't open %s ...", name));
    CORPUS_MOD_TIME = file.modified();
    try {
        read_forest(file.text(), show_progress ? name : std::string());
    } catch (const FormatError &fault) {
        error(fault.message);
    }
}

}  // namespace brindle
