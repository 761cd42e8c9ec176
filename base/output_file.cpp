#include "base/output_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "base/input_file.hpp"

namespace brindle {
namespace {

// The names of unfinished files, where a signal handler may read them.
std::array<std::atomic<char *>, 16> unfinished;

void remove_unfinished() {
    for (auto &name : unfinished)
        if (const char *n = name.load()) unlink(n);
}

int enlist(const std::string &name) {
    static const int registered = std::atexit(remove_unfinished);
    static_cast<void>(registered);
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

extern "C" void remove_unfinished_on(int signal_number) {
    remove_unfinished();
    std::signal(signal_number, SIG_DFL);
    raise(signal_number);
}

// What the link holds, as a name; "" if it is no link.
std::string link_target(const std::string &name) {
    char link[PATH_MAX];
    const ssize_t length = readlink(name.c_str(), link, sizeof link);
    if (length <= 0) return {};
    const std::string to(link, static_cast<std::size_t>(length));
    const std::size_t slash = name.rfind('/');
    return to.front() == '/' || slash == std::string::npos ? to : name.substr(0, slash + 1) + to;
}

// Where the target's links lead, even when nothing is there yet. Links in a circle are left to fail later.
std::string followed(std::string target) {
    constexpr int most_links = 40;
    for (int i = 0; i < most_links; ++i) {
        std::string next = link_target(target);
        if (next.empty()) break;
        target = std::move(next);
    }
    return target;
}

// A name for the unfinished file, for mkostemp. Long names are cut: the file system has a limit for them.
std::string name_beside(const std::string &target) {
    constexpr std::size_t longest = NAME_MAX - 7;
    const std::size_t slash = target.rfind('/');
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    return target.substr(0, start + std::min(longest, target.size() - start)) + ".XXXXXX";
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

OutputFile::OutputFile(const std::string &target, std::optional<mode_t> mode) : target_(followed(target)) {
    struct stat status = {};
    const bool exists = stat(target_.c_str(), &status) == 0;
    if (!exists && (errno != ENOENT || target_.empty())) {
        fail();  // no name at all is one that does not exist, too: but nothing can be put there
    } else if (exists && !S_ISREG(status.st_mode)) {
        fd_ = open(target_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
        if (fd_ < 0) fail();
    } else if (exists && access(target_.c_str(), W_OK) != 0) {
        fail();
    } else {
        create_beside(exists ? &status : nullptr, mode);
    }
}

// Owner and group are kept as far as the system lets us.
void OutputFile::create_beside(const struct stat *old, std::optional<mode_t> mode) {
    beside_ = name_beside(target_);
    fd_ = mkostemp(beside_.data(), O_CLOEXEC);
    if (fd_ < 0) {
        fail();
        beside_.clear();
        return;
    }
    slot_ = enlist(beside_);
    if (old && fchown(fd_, old->st_uid, old->st_gid) != 0) {
        [[maybe_unused]] const int group_kept = fchown(fd_, static_cast<uid_t>(-1), old->st_gid);
    }
    if (fchmod(fd_, old ? old->st_mode & 07777 : mode ? *mode & 07777 : default_mode()) != 0) fail();
}

OutputFile::~OutputFile() {
    if (fd_ >= 0) close(fd_);
    if (!beside_.empty()) unlink(beside_.c_str());
    strike(slot_);
}

bool OutputFile::fail() {
    if (fault_ == 0) fault_ = errno ? errno : EIO;
    return false;
}

bool OutputFile::write(std::string_view piece) {
    if (!ok()) return false;
    begun_ += piece.size();
    while (!piece.empty()) {
        const ssize_t written = ::write(fd_, piece.data(), piece.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return fail();
        piece.remove_prefix(static_cast<std::size_t>(written));
    }
    // The disk may begin at once, so that fsync finds little left to do.
    constexpr std::size_t worth_beginning = 1 << 20;
    if (begun_ >= worth_beginning && !beside_.empty()) {
        sync_file_range(fd_, 0, 0, SYNC_FILE_RANGE_WRITE);
        begun_ = 0;
    }
    return true;
}

bool OutputFile::complete() {
    if (!ok()) return false;
    if (fd_ < 0) return true;
    struct stat status = {};
    if (!beside_.empty() && fsync(fd_) != 0) return fail();
    if (fstat(fd_, &status) == 0) modified_ = status.st_mtim;
    const int closed = close(fd_);
    fd_ = -1;
    return closed == 0 || fail();
}

bool OutputFile::commit() {
    if (!complete()) return false;
    if (beside_.empty()) return true;
    if (rename(beside_.c_str(), target_.c_str()) != 0) return fail();
    strike(slot_);
    slot_ = -1;
    beside_.clear();
    sync_folder(target_);
    return true;
}

std::string OutputFile::error() const {
    return std::strerror(fault_);
}

void remove_unfinished_files_on_signals(bool pipes) {
    for (const int signal_number : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signal_number, remove_unfinished_on);
    if (pipes) std::signal(SIGPIPE, remove_unfinished_on);
    std::signal(SIGXFSZ, SIG_IGN);
}

bool backup(const std::string &name) {
    struct stat status = {};
    const InputFile old(name);
    if (!old.ok() || stat(name.c_str(), &status) != 0) return false;
    OutputFile copy(name + ".bak", status.st_mode);
    return copy.write(old.text()) && copy.commit();
}

}  // namespace brindle
