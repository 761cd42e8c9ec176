#include "model/output_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "model/input_file.hpp"

namespace brindle {
namespace {

constexpr std::size_t buffer_size = 1 << 20;

// The names of unfinished files, where a signal handler may read them.
std::array<std::atomic<char *>, 16> unfinished;

int enlist(const std::string &name) {
    char *copy = strdup(name.c_str());
    for (std::size_t i = 0; i < unfinished.size(); ++i) {
        char *nothing = nullptr;
        if (unfinished[i].compare_exchange_strong(nothing, copy)) return static_cast<int>(i);
    }
    std::free(copy);
    return -1;
}

void strike(int slot) {
    if (slot >= 0) std::free(unfinished[static_cast<std::size_t>(slot)].exchange(nullptr));
}

extern "C" void remove_unfinished(int signal_number) {
    for (auto &name : unfinished)
        if (const char *n = name.load()) unlink(n);
    std::signal(signal_number, SIG_DFL);
    raise(signal_number);
}

// Where the target's links lead; the target itself when nothing is there yet.
std::string followed(const std::string &target) {
    const std::unique_ptr<char, decltype(&std::free)> path(realpath(target.c_str(), nullptr), &std::free);
    if (path) return path.get();
    char link[PATH_MAX];
    const ssize_t length = readlink(target.c_str(), link, sizeof link);
    if (length <= 0) return target;
    const std::string to(link, static_cast<std::size_t>(length));
    const std::size_t slash = target.rfind('/');
    return to.front() == '/' || slash == std::string::npos ? to : target.substr(0, slash + 1) + to;
}

mode_t default_mode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// A rename lasts only when the folder's own entry is on disk.
void sync_folder(const std::string &file) {
    const std::size_t slash = file.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : slash == 0 ? "/" : file.substr(0, slash);
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    fsync(fd);
    close(fd);
}

}  // namespace

OutputFile::OutputFile(const std::string &target) : target_(followed(target)) {
    struct stat status = {};
    const bool exists = stat(target_.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        fd_ = open(target_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
        if (fd_ < 0) fail();
        return;
    }
    if (exists && access(target_.c_str(), W_OK) != 0) {
        fail();
        return;
    }
    beside_ = target_ + ".XXXXXX";
    fd_ = mkostemp(beside_.data(), O_CLOEXEC);
    if (fd_ < 0) {
        fail();
        beside_.clear();
        return;
    }
    slot_ = enlist(beside_);
    if (fchmod(fd_, exists ? status.st_mode & 07777 : default_mode()) != 0) fail();
    if (exists && geteuid() == 0 && fchown(fd_, status.st_uid, status.st_gid) != 0) fail();
}

OutputFile::~OutputFile() {
    give_up();
}

bool OutputFile::fail() {
    if (fault_ == 0) fault_ = errno ? errno : EIO;
    return false;
}

bool OutputFile::write_out(const char *bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(fd_, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return fail();
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool OutputFile::flush() {
    const bool done = write_out(buffer_.data(), buffer_.size());
    buffer_.clear();
    return done;
}

bool OutputFile::write(std::string_view piece) {
    if (!ok()) return false;
    if (buffer_.size() + piece.size() > buffer_size && !flush()) return false;
    if (piece.size() >= buffer_size) return write_out(piece.data(), piece.size());
    buffer_ += piece;
    return true;
}

bool OutputFile::commit() {
    if (!ok() || !flush()) return false;
    if (!beside_.empty() && fsync(fd_) != 0) return fail();
    const int closed = close(fd_);
    fd_ = -1;
    if (closed != 0) return fail();
    if (beside_.empty()) return true;
    if (rename(beside_.c_str(), target_.c_str()) != 0) return fail();
    strike(slot_);
    slot_ = -1;
    beside_.clear();
    sync_folder(target_);
    return true;
}

void OutputFile::give_up() {
    if (fd_ >= 0) close(fd_);
    fd_ = -1;
    if (!beside_.empty()) unlink(beside_.c_str());
    strike(slot_);
}

std::string OutputFile::error() const {
    return std::strerror(fault_);
}

void remove_unfinished_files_on_signals(bool pipes) {
    for (const int signal_number : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal_number, remove_unfinished);
    if (pipes) std::signal(SIGPIPE, remove_unfinished);
}

bool backup(const std::string &name) {
    const InputFile old(name);
    if (!old.ok()) return false;
    OutputFile copy(name + ".bak");
    return copy.write(old.text()) && copy.commit();
}

}  // namespace brindle
