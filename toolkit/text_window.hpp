#pragma once
// Multi-line text: an output window that is appended to, or an editor. Texts are in the locale's encoding.
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "toolkit/geometry.hpp"
#include "toolkit/object.hpp"

namespace brindle::tk {

class Font;
class Frame;

class TextWindow : public Object {
  public:
    struct Impl;
    explicit TextWindow(std::unique_ptr<Impl> impl);
    ~TextWindow() override;

    Frame &frame() const;

    // Inserts the text at the end and scrolls so that it is in view. Only the last megabyte is kept. A
    // sequence of bytes cut in the middle of a character is completed by the next piece.
    void append(std::string_view text);
    // Inserts at the insertion point, which moves behind it; an editor can undo it.
    void insert(std::string_view text);
    std::string text() const;
    // Replaces everything and forgets what could be undone; the insertion point is at the start.
    void set_text(std::string_view text);
    void clear() { set_text({}); }

    bool editable() const;
    void set_editable(bool editable);  // editable at start
    void set_wrap(bool wrap);          // long lines are broken at the window's edge; off at start
    void set_font(const Font &font);
    // Colours of the text, from the command line or the standard ones.
    Colour foreground() const;
    Colour background() const;

    // Puts the insertion point at the start of that line (1-based, kept within the text) and scrolls it into
    // view.
    void goto_line(int line);
    int line() const;  // of the insertion point
    void undo();       // the last change; any number of times
    void redo();
    bool modified() const;  // something was typed since set_text()
    void set_on_change(std::function<void(TextWindow &)> callback);
    void take_focus();

    Impl &impl() const { return *impl_; }

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace brindle::tk
