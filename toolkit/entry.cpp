#include "toolkit/entry.hpp"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include "toolkit/display.hpp"
#include "toolkit/look.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"

namespace brindle::tk {

namespace {

constexpr Fl_Boxtype FIELD_BOX = FL_FREE_BOXTYPE;

void draw_plain_field(int x, int y, int w, int h, Fl_Color) {
    draw_field({x, y, w, h}, false, true);
}

// FLTK asks the box type how far the text is from the border.
void set_up_box() {
    static const bool done = [] {
        const auto inset = static_cast<uchar>(px(5));
        const auto twice = static_cast<uchar>(2 * inset);
        Fl::set_boxtype(FIELD_BOX, draw_plain_field, inset, 2, twice, 4);
        return true;
    }();
    static_cast<void>(done);
}

bool is_tail_byte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

int entry_width(int characters) {
    return characters * text_width("0") + 2 * px(5) + 2;
}

Entry::Entry(int stored, bool digits) : Fl_Input(0, 0, 1, 1), stored_(stored) {
    set_up_box();
    box(FIELD_BOX);
    textsize(text_size());
    textcolor(look::TEXT);
    cursor_color(look::TEXT);
    selection_color(look::ACCENT);
    if (digits) type(FL_INT_INPUT);
    when(FL_WHEN_CHANGED);
    callback([](Fl_Widget *, void *entry) { static_cast<Entry *>(entry)->keep_limit(); }, this);
}

std::string Entry::utf8() const {
    return {value(), static_cast<std::size_t>(size())};
}

void Entry::set_utf8(const std::string &text) {
    value(text.data(), static_cast<int>(text.size()));
    position(size());
}

void Entry::select_all() {
    position(size(), 0);
}

// What has just been inserted ends at the insertion point: its tail goes until the rest fits.
void Entry::keep_limit() {
    bool cut = false;
    while (position() > 0 && from_display(utf8()).size() > static_cast<std::size_t>(stored_)) {
        int start = position() - 1;
        while (start > 0 && is_tail_byte(value()[start])) --start;
        Fl_Input::replace(start, position(), nullptr, 0);
        cut = true;
    }
    if (cut) bell();
}

void Entry::draw() {
    if (damage() & FL_DAMAGE_ALL) draw_field({x(), y(), w(), h()}, Fl::focus() == this, active_r() != 0);
    const Fl_Boxtype type = box();
    color(active_r() ? look::FIELD : look::GROUND);
    drawtext(x() + Fl::box_dx(type), y() + Fl::box_dy(type), w() - Fl::box_dw(type), h() - Fl::box_dh(type));
}

int Entry::handle(int event) {
    if (event == FL_PUSH && select_on_click && Fl::focus() != this && Fl::event_button() == FL_LEFT_MOUSE) {
        take_focus();
        select_all();
        return 1;
    }
    const int done = Fl_Input::handle(event);
    if (event == FL_FOCUS || event == FL_UNFOCUS) {
        redraw();
        if (event == FL_UNFOCUS && on_left) on_left();
    }
    return done;
}

}  // namespace brindle::tk
