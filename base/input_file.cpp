#include "base/input_file.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace brindle {
namespace {

// A page of a mapping that the file no longer has comes as a signal: nothing can be done but to say why.
[[noreturn]] void was_cut_short(int) {
    constexpr std::string_view text = "error: the file was cut short while it was being read; try again\n";
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
    _exit(1);
}

}  // namespace

InputFile::InputFile(const std::string &name) {
    const int fd = open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return;
    struct stat status = {};
    if (fstat(fd, &status) == 0) {
        modified_ = status.st_mtim;
        if (S_ISDIR(status.st_mode))
            errno = EISDIR;
        else if (S_ISREG(status.st_mode) && status.st_size > 0)
            ok_ = map(fd, static_cast<std::size_t>(status.st_size));
        else
            ok_ = read_all(fd);
    }
    const int fault = errno;
    close(fd);
    errno = fault;
}

InputFile::~InputFile() {
    if (mapping_) munmap(mapping_, text_.size());
}

bool InputFile::map(int fd, std::size_t size) {
    void *mapping = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fd, 0);
    if (mapping == MAP_FAILED) return read_all(fd);
    std::signal(SIGBUS, was_cut_short);
    madvise(mapping, size, MADV_SEQUENTIAL);
    mapping_ = mapping;
    text_ = {static_cast<const char *>(mapping), size};
    return true;
}

bool InputFile::read_all(int fd) {
    char buffer[1 << 16];
    ssize_t got = 0;
    while ((got = read(fd, buffer, sizeof buffer)) > 0) read_.append(buffer, static_cast<std::size_t>(got));
    text_ = read_;
    return got == 0;
}

}  // namespace brindle
