#pragma once
// Files for tests: an empty folder, what a file holds, a disk that is full, a corpus as a file would hold it.
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "corpus/writetrees.hpp"

namespace brindle::test {

// All that is written to it, in one string.
struct StringSink : TextSink {
    bool write(std::string_view piece) override { return text += piece, true; }
    std::string text;
};

// The corpus as it is saved.
inline std::string saved(const Corpus &corpus) {
    StringSink sink;
    save_corpus(corpus, sink);
    return sink.text;
}

// The bytes of a file; "" if there is none.
inline std::string contents(const std::filesystem::path &file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void put(const std::filesystem::path &file, std::string_view text) {
    std::ofstream(file, std::ios::binary) << text;
}

// An empty folder for one test, the current directory while it lasts.
struct Folder {
    std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("brindle-test-" + std::to_string(getpid()));
    Folder() {
        std::filesystem::create_directories(path);
        std::filesystem::current_path(path);
    }
    ~Folder() {
        std::filesystem::current_path(before);
        std::filesystem::remove_all(path);
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;
    std::string file(const char *name) const { return (path / name).string(); }
    long files() const {
        return std::distance(std::filesystem::directory_iterator(path),
                             std::filesystem::directory_iterator());
    }
};

// As long as it lasts no file can grow beyond so many bytes; writing more fails with EFBIG.
class LongestFile {
  public:
    explicit LongestFile(rlim_t bytes) {
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit small = before_;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~LongestFile() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    LongestFile(const LongestFile &) = delete;
    LongestFile &operator=(const LongestFile &) = delete;

  private:
    rlimit before_ = {};
    void (*handler_)(int) = nullptr;
};

}  // namespace brindle::test
