#pragma once
// The state of the Prolog connection, shared by the two files that work on it: queries.cpp (what goes to the
// child) and pipe.cpp (its start, what it writes, its end). Nobody else includes this.
#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "prolog/pipe.hpp"
#include "prolog/stream.hpp"

namespace brindle {

// What the stream finds goes to the host.
class ConnectionClient final : public StreamClient {
  public:
    void text_window_insert(std::string_view bytes) override;
    void show_message(std::string_view message) override;
    void ready() override;
    void go_on() override;
    void no_end_message() override;
};

struct Connection {
    PrologHost *host = nullptr;
    pid_t pid = -1;                              // -1: no child
    std::string unsent;                          // written as soon as the child reads
    std::string waiting_query;                   // typed while there was no child; sent at the first prompt
    std::string_view label = idle_label;         // of the query field
    bool retrying = false;                       // a timer for `unsent` is running
    bool reading = false;                        // inside read_it: a notice may be up, no more input is taken
    std::optional<std::pair<pid_t, int>> ended;  // the child ended meanwhile
    bool executed = false;                       // the program could be executed
    bool was_ready = false;                      // the child has shown a prompt
    bool restarted = false;                      // it replaces one that ended without ever showing one
    ConnectionClient client;
    PrologStream stream{client};
};

extern Connection connection;  // set and read by pipe.cpp and queries.cpp

// Shows the label in the query field.
void set_query_label(std::string_view label);

// Makes the query field usable without a child: Return in it starts a new one.
void wait_for_return();

}  // namespace brindle
