#pragma once
// The Prolog system that runs beside the program as its child on two pipes: one query a line goes in, free
// text and messages come out, and the prompt says that the child is ready again. One query is outstanding at
// a time.
//
// Use: start_prolog(host, default_child(CORPUS)) once the output window exists; commando() for Return in the
// query field; send_query() for every other query; quit_prolog() at the end. All the rest is driven by the
// host's event loop.
#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace brindle {

struct PrologHost;
struct TreeView;

extern int
    prolog_io[4];  // [1] queries are written here, [2] answers are read here; [0] and [3] are the child's
                   // ends and closed here. -1: not open. Set by forkandpipe, closed when the child ends
extern std::vector<std::string>
    child;  // the command of the child; set by start_prolog, read at every (re)start

inline constexpr std::string_view idle_label =
    "query:  ?-";  // the query field's label when the child is ready
inline constexpr std::string_view busy_label = "pending...";  // and while a query is out
inline constexpr std::string_view startup_line = "interactive(no),system(my_checker).\n";

// Takes the host, which must live until quit_prolog or reset_prolog, and the command, and starts the child.
// False: the fork failed.
bool start_prolog(PrologHost &host, std::vector<std::string> command);

// Creates the pipes, starts the program, registers the handlers and sends the start-up line. An empty vector
// ends the program. False: no pipes or no fork; the reason is on standard error.
bool forkandpipe(const std::vector<std::string> &arguments, PrologHost &host);

// Writes the start-up line.
void prologinit();

// Return in the query field: writes its text as a query. Without a child a new one is started, which gets the
// query when it is ready.
void commando(std::string_view text);

// Writes a query, a whole line with its newline, and shows "pending..." in the query field. Never blocks:
// what the pipe has no room for follows later. False: there is no child or it does not read; that is said in
// the view's footer (the main window's for null), and nothing is pending.
bool send_query(std::string_view line, TreeView *view);

// Writes a line without a word to anybody ("true.\n" to a child that may be waiting for input). False as
// above.
bool write_line(std::string_view line);

// Handles what the child has written: exactly the bytes that are waiting, in chunks of at most 8191. Returns
// 0.
int read_it(int fd);

// Handles the end of the child: restarts it with two notices, or makes the query field ready to start a new
// one when it was ended by a signal or could not be started at all.
void sigchldcatcher(pid_t pid, int status);

// What the query field's label says now.
std::string_view query_label();
inline bool prolog_is_busy() {
    return query_label() == busy_label;
}
inline bool prolog_is_idle() {
    return query_label() == idle_label;
}

// Writes "halt.\n", closes the pipes and forgets the child, which has half a second before it is ended.
void quit_prolog();

// Ends the child at once and forgets all (for tests).
void reset_prolog();

}  // namespace brindle
