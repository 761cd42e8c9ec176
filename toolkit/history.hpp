#pragma once
// What was changed in a text and can be taken back, any number of steps.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindle::tk {

// At a byte position, `deleted` gave way to `inserted`.
struct TextEdit {
    std::size_t at = 0;
    std::string deleted;
    std::string inserted;
};

class History {
  public:
    // Remembers a change; what had been undone is lost. Typing a word, or deleting character by character, is
    // one step.
    void record(TextEdit edit);
    // The change to take back, or to make again; nothing when there is none.
    std::optional<TextEdit> undo();
    std::optional<TextEdit> redo();
    void forget();
    // The next change starts a step of its own.
    void end_step() { open_ = false; }
    const TextEdit *last() const { return done_.empty() ? nullptr : &done_.back(); }

  private:
    bool joins(const TextEdit &edit) const;

    std::vector<TextEdit> done_;
    std::vector<TextEdit> undone_;
    bool open_ = false;  // the last step may grow
};

}  // namespace brindle::tk
