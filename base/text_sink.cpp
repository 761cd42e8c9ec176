#include "base/text_sink.hpp"

#include <algorithm>

namespace brindle {

bool TextBuffer::flush() {
    if (!sink_) return true;
    if (ok_ && used_ > 0) ok_ = sink_->write(text());
    used_ = 0;
    return ok_;
}

void TextBuffer::make_room(std::size_t bytes) {
    flush();
    if (storage_.size() - used_ < bytes) storage_.resize(std::max(2 * storage_.size(), used_ + bytes));
}

}  // namespace brindle
