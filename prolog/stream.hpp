#pragma once
// The child's output, taken apart: plain text, messages between "begin message" and "end message", and the
// prompt.
//
// A passive machine that is fed with chunks as they were read; it knows no descriptor and no window. Markers
// are looked for inside one chunk, and the prompt is one only as the last three bytes of a chunk: the child
// writes it and waits.
#include <cstddef>
#include <string>
#include <string_view>

namespace brindle {

inline constexpr std::string_view begin_marker = "begin message";
inline constexpr std::string_view end_marker = "end message";
inline constexpr std::string_view prompt_marker = "?- ";
enum class Marker : int { begin = 1, end = 2 };

// Who is told. The functions are called in the order of the bytes.
struct StreamClient {
    virtual ~StreamClient() = default;
    // Plain output, never empty.
    virtual void text_window_insert(std::string_view bytes) = 0;
    // A whole message, its markers not included.
    virtual void show_message(std::string_view message) = 0;
    // The prompt has come: the child is ready.
    virtual void ready() = 0;
    // After ready(): no message was being read, so a batch can send its next query.
    virtual void go_on() = 0;
    // After ready(): the prompt came inside a message, which is dropped.
    virtual void no_end_message() = 0;
};

class PrologStream {
  public:
    // The client must outlive the stream.
    explicit PrologStream(StreamClient &client) : client_(client) {}

    // One chunk as it was read: passes its text and messages on, then handles the prompt at its end.
    void feed(std::string_view chunk);

    // Splits a chunk without a prompt into plain text and message parts.
    void process_output(std::string_view bytes);

    // Offset of the first "begin message", or -1; sets READING_COMMAND when found.
    std::ptrdiff_t find_and_start_command(std::string_view bytes);
    // Offset of the first "end message" while a message is being read, else -1.
    std::ptrdiff_t find_end_command(std::string_view bytes) const;
    // The marker's length, or 0 when no message is being read.
    static std::size_t get_comm_length(bool reading, Marker marker);

    // Appends to the message.
    void add_to_command(std::string_view bytes) { command_buffer.append(bytes); }
    // Appends to the message, delivers it, and is ready for the next one.
    void finish_command(std::string_view bytes);
    // Drops a message that the prompt interrupted; the client is told first.
    void command_not_finished();

    // As at the start of a new child.
    void reset();

    bool READING_COMMAND = false;  // "begin message" was seen and its end was not
    std::string command_buffer;    // the message so far; empty when none is being read

  private:
    StreamClient &client_;
};

// How many of the chunk's last bytes may be the beginning of a marker, or the prompt: a reader that knows of
// more bytes keeps these for its next chunk.
std::size_t marker_tail(std::string_view chunk);

}  // namespace brindle
