#include "toolkit/item_view.hpp"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <utility>

#include "toolkit/scale.hpp"

namespace brindle::tk {

namespace {

std::string without_trailing_blanks(const std::string &text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

}  // namespace

ItemView::ItemView(const char *kind) : Fl_Group(0, 0, 1, 1), kind_(kind) {
    end();
    box(FL_FLAT_BOX);
    color(look::GROUND);
    resizable(nullptr);
}

void ItemView::set_label_utf8(std::string label) {
    label_ = std::move(label);
    redraw();
}

int ItemView::label_room() const {
    const std::string shown = without_trailing_blanks(label_);
    return shown.empty() ? 0 : text_width(shown, bold_label()) + px(look::LABEL_GAP);
}

void ItemView::place(int left, int top, int row_height, int label_column) {
    const Size size = control_size();
    const int height = std::max(size.h, least_height());
    const int own_top = top_label() ? top : top + (row_height - height) / 2;
    resize(left, own_top, label_column + size.w, height);
    control_ = {left + label_column, own_top + (height - size.h) / 2, size.w, size.h};
    place_control(control_);
}

int ItemView::least_height() const {
    return px(look::CONTROL);
}

Box ItemView::label_box() const {
    const int height = top_label() ? px(look::CONTROL) : h();
    return {x(), y(), control_.x - x(), height};
}

bool ItemView::has_focus() {
    return focus_target() && Fl::focus() == focus_target();
}

bool ItemView::key(const Event &) {
    return false;
}

void ItemView::draw() {
    if (damage() & ~FL_DAMAGE_CHILD) {
        fl_color(color());
        fl_rectf(x(), y(), w(), h());
        const Box box = label_box();
        if (!label_.empty()) draw_text(label_, box, Align::left, text_colour(), bold_label());
        draw_control();
        draw_children();
    } else {
        draw_children();
    }
}

int ItemView::handle(int event) {
    switch (event) {
        case FL_ENTER:
        case FL_LEAVE:
            over_ = event == FL_ENTER;
            redraw();
            Fl_Group::handle(event);
            return 1;
        case FL_FOCUS:
        case FL_UNFOCUS:
            redraw();
            return focus_target() == this;
        default:
            return Fl_Group::handle(event);
    }
}

}  // namespace brindle::tk
