#include "prolog/stream.hpp"

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

std::ptrdiff_t offset_of(std::string_view marker, std::string_view bytes) {
    const std::size_t at = bytes.find(marker);
    return at == std::string_view::npos ? -1 : static_cast<std::ptrdiff_t>(at);
}

std::size_t tail_length(std::string_view chunk, std::string_view marker, std::size_t longest) {
    for (std::size_t size = std::min(longest, chunk.size()); size > 0; --size) {
        if (chunk.ends_with(marker.substr(0, size))) return size;
    }
    return 0;
}

}  // namespace

void PrologStream::feed(std::string_view chunk) {
    if (!chunk.ends_with(prompt_marker)) {
        process_output(chunk);
        return;
    }
    chunk.remove_suffix(prompt_marker.size());
    process_output(chunk);
    client_.ready();
    if (READING_COMMAND) {
        command_not_finished();
    } else {
        client_.go_on();
    }
}

void PrologStream::process_output(std::string_view bytes) {
    while (!bytes.empty()) {
        const bool inside = READING_COMMAND;
        const std::ptrdiff_t found = inside ? find_end_command(bytes) : find_and_start_command(bytes);
        const std::string_view before =
            bytes.substr(0, found < 0 ? bytes.size() : static_cast<std::size_t>(found));
        bytes.remove_prefix(before.size());
        if (found >= 0) bytes.remove_prefix(get_comm_length(true, inside ? Marker::end : Marker::begin));
        if (inside && found >= 0) {
            finish_command(before);
        } else if (inside) {
            add_to_command(before);
        } else if (!before.empty()) {
            client_.text_window_insert(before);
        }
    }
}

std::ptrdiff_t PrologStream::find_and_start_command(std::string_view bytes) {
    const std::ptrdiff_t at = offset_of(begin_marker, bytes);
    if (at >= 0) READING_COMMAND = true;
    return at;
}

std::ptrdiff_t PrologStream::find_end_command(std::string_view bytes) const {
    return READING_COMMAND ? offset_of(end_marker, bytes) : -1;
}

std::size_t PrologStream::get_comm_length(bool reading, Marker marker) {
    if (!reading) return 0;
    return marker == Marker::begin ? begin_marker.size() : end_marker.size();
}

void PrologStream::finish_command(std::string_view bytes) {
    add_to_command(bytes);
    const std::string message = std::exchange(command_buffer, {});
    client_.show_message(message);
    reset();
}

void PrologStream::command_not_finished() {
    client_.no_end_message();
    reset();
}

void PrologStream::reset() {
    READING_COMMAND = false;
    command_buffer.clear();
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
