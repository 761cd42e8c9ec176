#pragma once
// A file that appears whole or not at all: written beside its target, checked, flushed to disk and renamed
// over it.
//
// A long text goes to the system in the background, a piece at a time, while the caller makes the next piece;
// so a failure may show one piece late.
//
// Links are followed and the target's permissions kept. A target that is no regular file (a device, a pipe)
// is written straight. The unfinished file is removed by the destructor, when the program exits, and, once
// remove_unfinished_files_on_signals has been called, when a signal ends it.
#include <sys/stat.h>

#include <ctime>
#include <future>
#include <optional>
#include <string>
#include <string_view>

#include "model/text_sink.hpp"

namespace brindle {

class OutputFile : public TextSink {
  public:
    // Creates the file beside the target. On failure ok() is false and error() tells why. `mode` is what the
    // permissions of a new file are; without it they are those of any new file.
    explicit OutputFile(const std::string &target, std::optional<mode_t> mode = {});
    ~OutputFile() override;
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    // Appends; false once anything has failed.
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
    bool fail() { return fail(errno); }
    bool fail(int fault);
    bool hand_over();
    bool arrived();
    int write_out(std::string_view bytes) const;
    void create_beside(const struct stat *old, std::optional<mode_t> mode);

    std::string target_;
    std::string beside_;  // the unfinished file; empty: the target is written straight
    std::string buffer_;
    std::string on_its_way_;       // what the background writes
    std::future<int> background_;  // the errno of that; 0: it is written
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
