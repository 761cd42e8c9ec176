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

// Who is told. The functions are called in the order of the bytes.
struct StreamClient {
    virtual ~StreamClient() = default;
    // Plain output, never empty.
    virtual void plain_text(std::string_view bytes) = 0;
    // A whole message, its markers not included.
    virtual void message(std::string_view text) = 0;
    // The prompt has come: the child is ready.
    virtual void ready() = 0;
    // After ready(): no message was being read, so a run can send its next query.
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
    // As at the start of a new child.
    void reset();
    // Bytes of the open message, its marker included; 0: none is open.
    std::size_t bytes_held() const { return in_message_ ? begin_marker.size() + message_.size() : 0; }

  private:
    void take_apart(std::string_view bytes);
    void end_message();

    StreamClient &client_;
    bool in_message_ = false;  // "begin message" was seen and its end was not
    std::string message_;      // the message so far
};

// How many of the chunk's last bytes may be the beginning of a marker, or the prompt: a reader that knows of
// more bytes keeps these for its next chunk.
std::size_t marker_tail(std::string_view chunk);

}  // namespace brindle
