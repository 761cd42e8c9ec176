#pragma once
// Where writers put their text, piece by piece: a file, standard output, a string in a test.
#include <cstring>
#include <string>
#include <string_view>

namespace brindle {

struct TextSink {
    virtual ~TextSink() = default;
    // Takes the piece. False: it could not be taken, and nothing more needs to come.
    virtual bool write(std::string_view piece) = 0;
};

// Text on its way to a sink, handed on whenever a piece is full, so that memory holds one piece of a large
// output. With no sink the text grows in memory.
class TextBuffer {
  public:
    TextBuffer() = default;
    // The sink must outlive the buffer.
    explicit TextBuffer(TextSink &sink) : storage_(piece_size, '\0'), sink_(&sink) {}

    TextBuffer &operator<<(char c) {
        *room(1) = c;
        ++used_;
        return *this;
    }
    TextBuffer &operator<<(std::string_view text) {
        std::memcpy(room(text.size()), text.data(), text.size());
        used_ += text.size();
        return *this;
    }

    // Where that many bytes may be written; `end_at` then says where they really ended.
    char *room(std::size_t bytes) {
        if (storage_.size() - used_ < bytes) make_room(bytes);
        return storage_.data() + used_;
    }
    void end_at(const char *end) { used_ = static_cast<std::size_t>(end - storage_.data()); }

    // What is in memory.
    std::string_view text() const { return {storage_.data(), used_}; }
    // Hands the text in memory on; false once the sink has failed. With no sink it stays.
    bool flush();
    bool ok() const { return ok_; }

    static constexpr std::size_t piece_size = 1 << 19;

  private:
    void make_room(std::size_t bytes);

    std::string storage_;
    std::size_t used_ = 0;
    TextSink *sink_ = nullptr;
    bool ok_ = true;
};

}  // namespace brindle
