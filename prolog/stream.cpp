#include "prolog/stream.hpp"

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

std::size_t tail_length(std::string_view chunk, std::string_view marker, std::size_t longest) {
    for (std::size_t size = std::min(longest, chunk.size()); size > 0; --size) {
        if (chunk.ends_with(marker.substr(0, size))) return size;
    }
    return 0;
}

}  // namespace

void PrologStream::feed(std::string_view chunk) {
    const bool prompt = chunk.ends_with(prompt_marker);
    if (prompt) chunk.remove_suffix(prompt_marker.size());
    take_apart(chunk);
    if (!prompt) return;
    client_.ready();
    if (!in_message_) {
        client_.go_on();
        return;
    }
    client_.no_end_message();
    reset();
}

// Splits a chunk without a prompt into plain text and message parts.
void PrologStream::take_apart(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view marker = in_message_ ? end_marker : begin_marker;
        const std::size_t found = bytes.find(marker);
        const std::string_view before = bytes.substr(0, found);
        bytes.remove_prefix(before.size());
        if (found != std::string_view::npos) bytes.remove_prefix(marker.size());
        if (!in_message_) {
            in_message_ = found != std::string_view::npos;
            if (!before.empty()) client_.plain_text(before);
            continue;
        }
        message_ += before;
        if (found != std::string_view::npos) end_message();
    }
}

void PrologStream::end_message() {
    const std::string text = std::exchange(message_, {});
    client_.message(text);
    reset();
}

void PrologStream::reset() {
    in_message_ = false;
    message_.clear();
}

std::size_t marker_tail(std::string_view chunk) {
    for (const std::string_view marker : {begin_marker, end_marker}) {  // a whole one stays whole
        const std::size_t at = chunk.rfind(marker);
        if (at != std::string_view::npos) chunk.remove_prefix(at + marker.size());
    }
    return std::max({tail_length(chunk, begin_marker, begin_marker.size() - 1),
                     tail_length(chunk, end_marker, end_marker.size() - 1),
                     tail_length(chunk, prompt_marker, prompt_marker.size())});
}

}  // namespace brindle
