#pragma once
// A file that appears whole or not at all: written beside its target, checked, flushed to disk and renamed
// over it.
//
// Links are followed and the target's permissions kept. A target that is no regular file (a device, a pipe)
// is written straight. The unfinished file is removed by the destructor, when the program exits, and, once
// remove_unfinished_files_on_signals has been called, when a signal ends it.
#include <sys/stat.h>

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

#include "base/text_sink.hpp"

namespace brindle {

class OutputFile : public TextSink {
  public:
    // Creates the file beside the target. On failure ok() is false and error() tells why. `mode` is what the
    // permissions of a new file are; without it they are those of any new file.
    explicit OutputFile(const std::string &target, std::optional<mode_t> mode = {});
    ~OutputFile() override;
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    // Appends at once: small pieces are better gathered in a TextBuffer. False once anything has failed.
    bool write(std::string_view piece) override;
    // Flushes everything to disk: what can fail has been done then, but the target is still as it was (unless
    // it is no regular file). False: it failed.
    bool complete();
    // Completes the file and puts it in the target's place. False: the target is as it was.
    bool commit();

    bool ok() const { return fault_ == 0; }
    // The errno of what failed first; 0: nothing has.
    int fault() const { return fault_; }
    // The system's text for what failed first.
    std::string error() const;
    // When the completed file was last changed, as the file system has it.
    std::timespec modified() const { return modified_; }

  private:
    bool fail();
    void create_beside(const struct stat *old, std::optional<mode_t> mode);

    std::string target_;
    std::string beside_;     // the unfinished file; empty: the target is written straight
    std::size_t begun_ = 0;  // bytes written since the disk was last told to begin
    int fd_ = -1;
    int fault_ = 0;
    int slot_ = -1;  // where a signal handler finds beside_
    std::timespec modified_ = {};
};

// Installs handlers for SIGINT, SIGTERM and SIGHUP that remove unfinished files and then let the signal end
// the program; SIGPIPE too when `pipes` is set. A file that may not grow further is from then on an error of
// `write` and no signal.
void remove_unfinished_files_on_signals(bool pipes);

// Copies the file beside itself as "<name>.bak", whole or not at all and with the same permissions. False: it
// could not be done.
bool backup(const std::string &name);

}  // namespace brindle
