// Any output of the child in any chunks: no byte is lost or shown twice, each prompt is answered once, and
// after a new start nothing of it is left. A byte 0xff ends a chunk.
#include <string>
#include <vector>

#include "check.hpp"
#include "prolog/stream.hpp"

namespace {

using namespace brindle;

struct Recorder final : StreamClient {
    explicit Recorder(std::size_t size) : left(size) {}

    void plain_text(std::string_view bytes) override {
        FUZZ_CHECK(!bytes.empty());
        take(bytes.size());
    }
    void message(std::string_view text) override {
        take(begin_marker.size() + text.size() + end_marker.size());
    }
    void ready() override {
        FUZZ_CHECK(!answered);
        answered = true;
        take(prompt_marker.size());
    }
    void go_on() override { end_of_answer(); }
    void no_end_message() override {
        end_of_answer();
        take(stream->bytes_held());
    }

    void end_of_answer() {
        FUZZ_CHECK(answered);
        answered = false;
    }
    void take(std::size_t bytes) {
        FUZZ_CHECK(bytes <= left);
        left -= bytes;
    }

    std::size_t left;  // bytes of the output nobody has been told of
    bool answered = false;
    const PrologStream *stream = nullptr;
};

std::vector<std::string_view> chunks_of(std::string_view text) {
    std::vector<std::string_view> chunks;
    for (std::size_t end; (end = text.find('\xff')) != text.npos; text.remove_prefix(end + 1))
        chunks.push_back(text.substr(0, end));
    chunks.push_back(text);
    return chunks;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    const auto chunks = chunks_of(text);
    Recorder recorder(size + 1 - chunks.size());
    PrologStream stream(recorder);
    recorder.stream = &stream;
    for (const std::string_view chunk : chunks) {
        stream.feed(chunk);
        FUZZ_CHECK(!recorder.answered);
        FUZZ_CHECK(marker_tail(chunk) <= chunk.size());
    }
    FUZZ_CHECK(recorder.left == stream.bytes_held());
    stream.reset();
    FUZZ_CHECK(stream.bytes_held() == 0);
    return 0;
}
