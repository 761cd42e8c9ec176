#pragma once
// Where writers put their text, piece by piece: a file, standard output, a string in a test.
#include <string>
#include <string_view>

namespace brindle {

struct TextSink {
    virtual ~TextSink() = default;
    // Takes the piece. False: it could not be taken, and nothing more needs to come.
    virtual bool write(std::string_view piece) = 0;
};

// Text on its way to a sink: writers append to `text` and call `spill` now and then, so that memory holds one
// piece of a large output, however large the single tree is. With no sink everything stays in `text`.
class TextBuffer {
  public:
    TextBuffer() = default;
    explicit TextBuffer(TextSink &sink) : sink_(&sink) {}

    // Hands the text on once it is long enough.
    void spill() {
        if (sink_ && text.size() >= piece_size) flush();
    }
    // Hands the text on; false once the sink has failed.
    bool flush() {
        if (!sink_) return true;
        if (ok_ && !text.empty()) ok_ = sink_->write(text);
        text.clear();
        return ok_;
    }
    bool ok() const { return ok_; }

    std::string text;

  private:
    static constexpr std::size_t piece_size = 1 << 18;
    TextSink *sink_ = nullptr;
    bool ok_ = true;
};

}  // namespace brindle
