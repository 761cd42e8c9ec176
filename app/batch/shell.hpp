#pragma once
// The shell around an action: files and standard streams, messages, the progress bar of a run.
#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "app/batch/options.hpp"
#include "base/text_sink.hpp"
#include "model/node.hpp"
#include "propose/run.hpp"

namespace brindle::batch {

// The whole of a file, or of standard input for "-". False after a message if it cannot be read.
bool take_in(const std::string &name, std::string &text);

// Lets `produce` write into the named file (whole or not at all) or, for "-", to standard output; false: it
// has failed. Returns `done`, or `failed` after a message on standard error.
int write_to(const std::string &name, const std::function<bool(TextSink &)> &produce);
// The same for a text.
int put_out(const std::string &name, std::string_view text);
// What to say when the named output could not be written; returns `failed`.
int told(const std::string &name, const std::string &reason);

// A message on standard error, "brindle-batch: <message>".
void complain(std::string_view message);

// A notice's text for a terminal: its own line breaks (a line of an ESC alone, then blanks and tabs) stand as
// they are, other control characters are made visible.
std::string for_terminal(std::string_view notice);

// What a long run shows on standard error: a bar, only when that is a terminal and the work has lasted longer
// than half a second, and what is to be told meanwhile.
class RunDisplay {
  public:
    explicit RunDisplay(bool quiet);
    ~RunDisplay();
    RunDisplay(const RunDisplay &) = delete;
    RunDisplay &operator=(const RunDisplay &) = delete;

    // n of m trees are done.
    void progress(int n, int m);
    void print(std::string_view line);
    // "tree TREE, node PATH: message"
    void tell_at(const Node *node, std::string_view message);
    // How many messages have been told at nodes.
    int errors() const { return errors_; }

    // The hooks of a run that is shown here.
    RunHooks hooks();

  private:
    void wipe();

    using Clock = std::chrono::steady_clock;
    bool shows_;
    bool drawn_ = false;
    int errors_ = 0;
    Clock::time_point started_ = Clock::now();
    Clock::time_point latest_ = started_;
};

}  // namespace brindle::batch
