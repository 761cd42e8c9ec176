#include "toolkit/history.hpp"

#include <utility>

namespace brindle::tk {

namespace {

bool is_blank(char c) {
    return c == ' ' || c == '\n' || c == '\t';
}

// A word that was begun ends with the blanks behind it.
bool same_word(const std::string &typed, const std::string &more) {
    return !is_blank(typed.back()) || is_blank(more.front());
}

}  // namespace

bool History::joins(const TextEdit &edit) const {
    if (!open_ || done_.empty()) return false;
    const TextEdit &last = done_.back();
    constexpr std::size_t one_character = 4;  // bytes at most
    const bool typing = edit.deleted.empty() && last.deleted.empty() && !last.inserted.empty() &&
                        edit.inserted.size() <= one_character && edit.at == last.at + last.inserted.size();
    if (typing) return same_word(last.inserted, edit.inserted);
    const bool deleting =
        edit.inserted.empty() && last.inserted.empty() && edit.deleted.size() <= one_character;
    return deleting && (edit.at + edit.deleted.size() == last.at || edit.at == last.at);
}

void History::record(TextEdit edit) {
    undone_.clear();
    if (!joins(edit)) {
        done_.push_back(std::move(edit));
        open_ = true;
        return;
    }
    TextEdit &last = done_.back();
    last.inserted += edit.inserted;
    if (edit.deleted.empty()) return;
    last.deleted = edit.at < last.at ? edit.deleted + last.deleted : last.deleted + edit.deleted;
    last.at = edit.at;
}

std::optional<TextEdit> History::undo() {
    if (done_.empty()) return std::nullopt;
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    open_ = false;
    return undone_.back();
}

std::optional<TextEdit> History::redo() {
    if (undone_.empty()) return std::nullopt;
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    open_ = false;
    return done_.back();
}

void History::forget() {
    done_.clear();
    undone_.clear();
    open_ = false;
}

}  // namespace brindle::tk
