#pragma once
#include <FL/Fl_Group.H>

#include <functional>
#include <memory>
#include <string>

#include "toolkit/text_editor.hpp"
#include "toolkit/text_window.hpp"

namespace brindle::tk {

struct TextWindow::Impl {
    explicit Impl(Frame &owner);

    Frame *frame;
    TextWindow *self = nullptr;
    TextEditor editor;
    std::function<void(TextWindow &)> on_change;
    bool modified = false;
    std::string
        waiting;  // output that is not in the editor yet: FLTK counts all lines again after every change

    // Puts the output that waits into the editor; bytes of a character whose rest has not come yet stay.
    void flush_output();

    void attach(TextWindow &window, Fl_Group &top);
    void move_to(Box box);  // px
    Size preferred() const;
    Fl_Widget *focus_target() { return &editor; }
    Box screen_box() const;
};

// Does so for all text windows; called before drawing.
void flush_all_output();

}  // namespace brindle::tk
