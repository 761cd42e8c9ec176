#include "toolkit/popup_window.hpp"

#include <FL/fl_draw.H>

#include <algorithm>

#include "toolkit/look.hpp"
#include "toolkit/popup.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"

namespace brindle::tk {

namespace {

constexpr int BORDER = 1;
constexpr int ARROW_ROOM = 22;
constexpr int MARGIN = 12;
constexpr int ARROW_STRIP = 16;  // above and below the entries of a menu that scrolls

}  // namespace

PopupWindow::PopupWindow(Menu &menu, int min_width, int most_height)
    : Fl_Double_Window(1, 1),
      id(next_window_id()),
      menu_(menu),
      entry_height_(line_height() + px(8)),
      room_(entries()) {
    end();
    set_override();
    box(FL_NO_BOX);
    int width = menu.title().empty() ? 0 : text_width(to_display(menu.title()), true);
    int arrow = 0;
    for (const auto &item : menu.items()) {
        width = std::max(width, text_width(to_display(item->label())));
        if (item->checked()) mark_room_ = px(20);
        if (item->submenu()) arrow = px(ARROW_ROOM);
    }
    width += mark_room_ + arrow + 2 * px(MARGIN) + 2 * BORDER;
    const int rest = title_height() + 2 * BORDER;
    if (rest + entries() * entry_height_ > most_height) {
        const int most = (most_height - rest - 2 * px(ARROW_STRIP)) / entry_height_;
        room_ = std::clamp(most, 1, entries());
    }
    size(std::max(width, min_width), rest + room_ * entry_height_ + 2 * arrow_height());
}

int PopupWindow::arrow_height() const {
    return scrolls() ? px(ARROW_STRIP) : 0;
}

int PopupWindow::entries_top() const {
    return BORDER + title_height() + arrow_height();
}

int PopupWindow::title_height() const {
    return menu_.title().empty() ? 0 : line_height() + px(10);
}

void PopupWindow::mark(int entry) {
    if (entry == marked_) return;
    marked_ = entry;
    if (entry >= 0 && !in_view(entry))
        scroll_by(entry < first_ ? entry - first_ : entry - first_ - room_ + 1);
    redraw();
}

void PopupWindow::scroll_by(int entries_on) {
    first_ = std::clamp(first_ + entries_on, 0, entries() - room_);
    redraw();
}

int PopupWindow::arrow_at(Point screen) const {
    if (!scrolls() || !screen_box().contains(screen)) return 0;
    const int from_top = screen.y - y() - BORDER - title_height();
    if (from_top < 0) return 0;
    if (from_top < arrow_height()) return -1;
    return from_top >= arrow_height() + room_ * entry_height_ ? 1 : 0;
}

MenuItem *PopupWindow::marked_item() const {
    return marked_ < 0 ? nullptr : menu_.items()[static_cast<std::size_t>(marked_)].get();
}

int PopupWindow::next_entry(int from, int direction) const {
    const int count = entries();
    int entry = from < 0 && direction < 0 ? count : from;
    for (int tried = 0; tried < count; ++tried) {
        entry = (entry + direction + count) % count;
        if (!menu_.items()[static_cast<std::size_t>(entry)]->inactive()) return entry;
    }
    return -1;
}

Box PopupWindow::entry_box(int entry) const {
    const int top = y() + entries_top() + (entry - first_) * entry_height_;
    return {x() + BORDER, top, w() - 2 * BORDER, entry_height_};
}

int PopupWindow::entry_at(Point screen) const {
    for (int entry = 0; entry < entries(); ++entry) {
        const bool inactive = menu_.items()[static_cast<std::size_t>(entry)]->inactive();
        if (!inactive && in_view(entry) && entry_box(entry).contains(screen)) return entry;
    }
    return -1;
}

void PopupWindow::draw_entry(int entry) {
    const MenuItem &item = *menu_.items()[static_cast<std::size_t>(entry)];
    Box box = entry_box(entry);
    box.x -= x();
    box.y -= y();
    const bool chosen = entry == marked_;
    if (chosen) {
        fl_color(look::ACCENT);
        fl_rectf(box.x, box.y, box.w, box.h);
    }
    const Fl_Color colour = item.inactive() ? look::GREY_TEXT : chosen ? look::ON_ACCENT : look::TEXT;
    const int left = px(MARGIN) + mark_room_;
    if (item.checked()) draw_tick({box.x + px(6), box.y, mark_room_, box.h}, colour);
    draw_text(to_display(item.label()), {box.x + left, box.y, box.w - left, box.h}, Align::left, colour);
    const int arrow = px(ARROW_ROOM);
    if (item.submenu()) draw_triangle({box.x + box.w - arrow, box.y, arrow, box.h}, '>', colour);
}

void PopupWindow::draw() {
    fl_color(look::FIELD);
    fl_rectf(0, 0, w(), h());
    fl_color(look::BORDER);
    fl_rect(0, 0, w(), h());
    if (const int height = title_height()) {
        fl_color(look::GROUND);
        fl_rectf(BORDER, BORDER, w() - 2 * BORDER, height - 1);
        fl_color(look::BORDER);
        fl_xyline(BORDER, height, w() - 2 * BORDER);
        draw_text(to_display(menu_.title()), {BORDER, BORDER, w() - 2 * BORDER, height - 1}, Align::centre,
                  look::TEXT, true);
    }
    for (int entry = first_; entry < first_ + room_; ++entry) draw_entry(entry);
    if (scrolls()) draw_arrows();
}

// An arrow is grey when there is nothing more on its side.
void PopupWindow::draw_arrows() {
    const auto colour = [](bool more) { return more ? look::TEXT : look::GREY_TEXT; };
    const int height = arrow_height();
    const int above = BORDER + title_height();
    draw_triangle({0, above, w(), height}, '^', colour(first_ > 0));
    draw_triangle({0, above + height + room_ * entry_height_, w(), height}, 'v',
                  colour(first_ + room_ < entries()));
}

}  // namespace brindle::tk
