// Scrolling lists.
#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <algorithm>

#include "toolkit/list_view.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"

namespace brindle::tk {

ListView::ListView(const List::Options &options) : ItemView("list"), options_(options) {
    add(bar_);
    bar_.on_scroll = [this] { redraw(); };
    bar_.step = 1;
    update_bar(0);
}

int ListView::row_height() const {
    return line_height() + px(4);
}

Size ListView::control_size() const {
    return {px(options_.width), options_.rows * row_height() + 2};
}

std::string ListView::value_utf8() const {
    return selected_ < 0 ? std::string() : rows[static_cast<std::size_t>(selected_)].utf8;
}

void ListView::place_control(Box box) {
    const int width = px(look::SCROLLBAR);
    bar_.resize(box.x + box.w - width - 1, box.y + 1, width, box.h - 2);
}

void ListView::update_bar(int start) {
    bar_.set_view(start, options_.rows, std::max(1, static_cast<int>(rows.size())));
    redraw();
}

void ListView::rows_changed() {
    if (selected_ >= static_cast<int>(rows.size())) selected_ = -1;
    update_bar(bar_.start());
}

void ListView::select(int row) {
    selected_ = row >= 0 && row < static_cast<int>(rows.size()) ? row : -1;
    if (selected_ < 0) return redraw();
    const int first = std::min(bar_.start(), selected_);
    update_bar(std::max(first, selected_ - options_.rows + 1));
}

void ListView::choose(int row) {
    select(row);
    const auto f = on_select;
    if (f && selected_ >= 0) f(static_cast<List &>(*item), selected_);
}

void ListView::activate_row() {
    const auto f = on_activate;
    if (f && selected_ >= 0) f(static_cast<List &>(*item), selected_);
}

std::vector<ListView::ShownRow> ListView::shown_rows() const {
    const Box box = control_box();
    const int width = box.w - 2 - px(look::SCROLLBAR);
    const int height = row_height();
    std::vector<ShownRow> shown;
    const int end = std::min(bar_.start() + options_.rows, static_cast<int>(rows.size()));
    for (int row = bar_.start(); row < end; ++row) {
        shown.push_back({row, {box.x + 1, box.y + 1 + (row - bar_.start()) * height, width, height}});
    }
    return shown;
}

void ListView::draw_control() {
    const bool active = active_r() != 0;
    draw_field(control_box(), has_focus(), active);
    for (const auto &[row, box] : shown_rows()) {
        const bool marked = row == selected_;
        if (marked) {
            fl_color(active ? look::ACCENT : look::FAINT);
            fl_rectf(box.x + 1, box.y, box.w - 1, box.h);
        }
        const Box text{box.x + px(look::PADDING), box.y, box.w - 2 * px(look::PADDING), box.h};
        draw_text(rows[static_cast<std::size_t>(row)].utf8, text, Align::left,
                  marked && active ? look::ON_ACCENT : text_colour());
    }
}

int ListView::row_at_pointer() const {
    for (const auto &[row, box] : shown_rows()) {
        if (box.contains({Fl::event_x(), Fl::event_y()})) return row;
    }
    return -1;
}

int ListView::push() {
    const int row = row_at_pointer();
    take_focus();
    Fl::focus(this);
    if (row < 0) return 1;
    const bool again = row == selected_ && Fl::event_clicks() > 0;
    choose(row);
    if (again) activate_row();
    return 1;
}

int ListView::handle(int event) {
    const bool on_bar = Fl::event_inside(&bar_) != 0;
    switch (event) {
        case FL_PUSH:
            if (on_bar || Fl::event_button() != FL_LEFT_MOUSE) return ItemView::handle(event);
            return push();
        case FL_MOUSEWHEEL:
            return bar_.handle(event);
        default:
            return ItemView::handle(event);
    }
}

bool ListView::key(const Event &event) {
    const int last = static_cast<int>(rows.size()) - 1;
    int row = selected_;
    switch (event.code) {
        case EVENT_UP:
            row = std::max(row - 1, 0);
            break;
        case EVENT_DOWN:
            row = row + 1;
            break;
        case EVENT_PAGE_UP:
            row = std::max(row - options_.rows, 0);
            break;
        case EVENT_PAGE_DOWN:
            row = row + options_.rows;
            break;
        case EVENT_HOME:
            row = 0;
            break;
        case EVENT_END:
            row = last;
            break;
        case CODE_RETURN:
            if (!on_activate || selected_ < 0) return false;
            activate_row();
            return true;
        default:
            return false;
    }
    choose(std::min(row, last));
    return true;
}

namespace {

ListView &list_view(const Item &item) {
    return static_cast<ListView &>(item.view());
}

}  // namespace

List::List(Panel &panel, std::string_view label, Options options)
    : Item(panel, std::make_unique<ListView>(options)) {
    set_label(label);
}

int List::size() const {
    return static_cast<int>(list_view(*this).rows.size());
}
std::string List::row(int n) const {
    return list_view(*this).rows.at(static_cast<std::size_t>(n)).text;
}

void List::add_row(std::string_view text) {
    list_view(*this).rows.push_back({std::string(text), to_display(text)});
    list_view(*this).rows_changed();
}

void List::set_rows(const std::vector<std::string> &rows) {
    clear();
    for (const std::string &text : rows) list_view(*this).rows.push_back({text, to_display(text)});
    list_view(*this).rows_changed();
}

void List::delete_row(int n) {
    ListView &view = list_view(*this);
    if (n < 0 || n >= size()) return;
    const int selected = view.selected();
    view.rows.erase(view.rows.begin() + n);
    if (n <= selected) view.select(n == selected ? -1 : selected - 1);
    view.rows_changed();
}

void List::clear() {
    list_view(*this).rows.clear();
    list_view(*this).select(-1);
    list_view(*this).rows_changed();
}

int List::selected() const {
    return list_view(*this).selected();
}
void List::select(int n) {
    list_view(*this).select(n);
}
void List::set_on_select(Callback callback) {
    list_view(*this).on_select = std::move(callback);
}
void List::set_on_activate(Callback callback) {
    list_view(*this).on_activate = std::move(callback);
}

}  // namespace brindle::tk
