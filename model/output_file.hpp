#pragma once
// A file that appears whole or not at all: written beside its target, checked, flushed to disk and renamed
// over it.
//
// Links are followed and the target's permissions kept. A target that is no regular file (a device, a pipe)
// is written straight. The unfinished file is removed by the destructor, and by remove_unfinished_files on a
// signal.
#include <string>
#include <string_view>

namespace brindle {

class OutputFile {
  public:
    // Creates the file beside the target. On failure ok() is false and error() tells why.
    explicit OutputFile(const std::string &target);
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    // Appends; false once anything has failed.
    bool write(std::string_view piece);
    // Flushes everything to disk and puts the file in the target's place. False: the target is as it was.
    bool commit();

    bool ok() const { return fault_ == 0; }
    // The system's text for what failed first.
    std::string error() const;

  private:
    bool fail();
    bool flush();
    bool write_out(const char *bytes, std::size_t size);
    void give_up();

    std::string target_;
    std::string beside_;  // the unfinished file; empty: the target is written straight
    std::string buffer_;
    int fd_ = -1;
    int fault_ = 0;
    int slot_ = -1;  // where a signal handler finds beside_
};

// Installs handlers for SIGINT, SIGTERM and SIGHUP that remove unfinished files and then let the signal end
// the program. SIGPIPE too when `pipes` is set.
void remove_unfinished_files_on_signals(bool pipes);

// Copies the file beside itself as "<name>.bak", whole or not at all. False: it could not be done.
bool backup(const std::string &name);

}  // namespace brindle
