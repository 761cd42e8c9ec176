#include "toolkit/panel.hpp"

#include <algorithm>
#include <map>
#include <utility>

#include "toolkit/frame_impl.hpp"
#include "toolkit/item_view.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/x11.hpp"

namespace brindle::tk {

namespace {

constexpr int MARGIN_X = 8;  // of a panel whose first item has no place
constexpr int MARGIN_Y = 4;
constexpr int MARGIN_MAX = 14;  // below the last row
constexpr int DECORATION = 40;  // px that a window manager may put above and below a window

// The items of one row, and its height.
struct Row {
    std::vector<std::size_t> items;
    int left = 0;
    int top = 0;
    int height = 0;
};

// Rows of items, top down. Labels that begin rows at the same place share a column, so that their controls
// align.
class RowLayout {
  public:
    explicit RowLayout(Panel::Impl &panel) : panel_(panel) {
        for (std::size_t n = 0; n < panel.items.size(); ++n) add(n);
        for (const Row &row : rows_) measure_column(row);
        close_up(bottom() + margin_below() - (work_area({0, 0}).h - DECORATION));
    }

    Size place_all(Point origin) {
        for (const Row &row : rows_) place_row(row, origin);
        const Place first = first_place();
        return {right_ + px(first.x >= 0 ? first.x : MARGIN_X), bottom() + margin_below()};
    }

  private:
    ItemView &view(std::size_t n) const { return panel_.items[n]->view(); }
    Place first_place() const { return panel_.places.empty() ? Place{} : panel_.places[0]; }
    int bottom() const { return rows_.empty() ? 0 : rows_.back().top + rows_.back().height; }
    int margin_below() const {
        const Place first = first_place();
        return px(first.y >= 0 ? std::min(first.y, MARGIN_MAX) : MARGIN_Y);
    }

    // A panel that is too high for the screen gives up so much of the gaps between its rows.
    void close_up(int excess) {
        if (excess <= 0) return;
        int gaps = 0;
        std::vector<int> gaps_above;
        for (std::size_t n = 0; n < rows_.size(); ++n) {
            if (n > 0) gaps += rows_[n].top - rows_[n - 1].top - rows_[n - 1].height;
            gaps_above.push_back(gaps);
        }
        for (std::size_t n = 0; gaps > 0 && n < rows_.size(); ++n)
            rows_[n].top -= std::min(excess, gaps) * gaps_above[n] / gaps;
    }

    void add(std::size_t n) {
        const Place &place = panel_.places[n];
        if (rows_.empty() || place.new_row) {
            const bool first = rows_.empty();
            const int gap = place.gap >= 0 ? place.gap : look::ROW_GAP;
            const int below = first ? px(MARGIN_Y) : bottom() + px(gap);
            rows_.push_back(
                {{}, px(place.x >= 0 ? place.x : MARGIN_X), place.y >= 0 ? px(place.y) : below, 0});
        }
        Row &row = rows_.back();
        row.items.push_back(n);
        row.height = std::max(row.height, view(n).control_size().h);
    }

    void measure_column(const Row &row) {
        int &column = columns_[row.left];
        column = std::max(column, view(row.items[0]).label_room());
    }

    void place_row(const Row &row, Point origin) {
        int x = row.left;
        for (const std::size_t n : row.items) {
            const bool first = n == row.items[0];
            const int own = view(n).label_room();
            const int column = first && own > 0 ? columns_[row.left] : own;
            if (!first && panel_.places[n].x >= 0) x = std::max(x, px(panel_.places[n].x));
            view(n).place(origin.x + x, origin.y + row.top, row.height, column);
            x += column + view(n).control_size().w;
            right_ = std::max(right_, x);
            x += px(look::ITEM_GAP);
        }
    }

    Panel::Impl &panel_;
    std::vector<Row> rows_;
    std::map<int, int> columns_;  // left edge of rows -> width of their first labels
    int right_ = 0;
};

}  // namespace

Panel::Impl::Impl(Frame &owner) : frame(&owner), group(std::make_unique<Fl_Group>(0, 0, 1, 1)) {
    group->end();
    group->box(FL_FLAT_BOX);
    group->color(look::GROUND);
    group->resizable(nullptr);
}

void Panel::Impl::lay_out() {
    fitted = RowLayout(*this).place_all({group->x(), group->y()});
    group->init_sizes();
    group->redraw();
}

Size Panel::Impl::wanted() const {
    return {asked.w > 0 ? asked.w : fitted.w, asked.h > 0 ? asked.h : fitted.h};
}

void Panel::Impl::move_to(Box box) {
    group->resize(box.x, box.y, box.w, box.h);
    lay_out();
}

Button *Panel::Impl::button_labelled(std::string_view label) const {
    for (const auto &item : items) {
        auto *button = dynamic_cast<Button *>(item.get());
        if (button && button->label() == label) return button;
    }
    return nullptr;
}

const Button *default_button_of(const Item &item) {
    const Panel::Impl &panel = item.panel().impl();
    return panel.default_button ? panel.default_button : panel.button_labelled("Ok");
}

Panel::Panel(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {
    impl_->self = this;
}
Panel::~Panel() = default;

Frame &Panel::frame() const {
    return *impl_->frame;
}

namespace {

template <class T>
T &keep(Panel::Impl &panel, Place place, std::unique_ptr<T> item) {
    T &kept = *item;
    panel.items.push_back(std::move(item));
    panel.places.push_back(place);
    panel.lay_out();
    return kept;
}

}  // namespace

Button &Panel::add_button(std::string_view label, Place place, Button::Callback callback) {
    return keep(*impl_, place, std::make_unique<Button>(*this, label, std::move(callback)));
}

Message &Panel::add_message(std::string_view text, Place place, bool bold) {
    return keep(*impl_, place, std::make_unique<Message>(*this, text, bold));
}

TextField &Panel::add_text_field(std::string_view label, Place place, TextField::Options options,
                                 TextField::Callback callback) {
    return keep(*impl_, place, std::make_unique<TextField>(*this, label, options, std::move(callback)));
}

NumericField &Panel::add_numeric_field(std::string_view label, Place place, NumericField::Options options,
                                       NumericField::Callback callback) {
    return keep(*impl_, place, std::make_unique<NumericField>(*this, label, options, std::move(callback)));
}

Slider &Panel::add_slider(std::string_view label, Place place, Slider::Options options,
                          Slider::Callback callback) {
    return keep(*impl_, place, std::make_unique<Slider>(*this, label, options, std::move(callback)));
}

Choice &Panel::add_choice(std::string_view label, Place place, std::vector<std::string> options,
                          Choice::Callback callback) {
    return keep(*impl_, place,
                std::make_unique<Choice>(*this, label, std::move(options), std::move(callback)));
}

CheckBox &Panel::add_check_box(std::string_view label, Place place, bool value, CheckBox::Callback callback) {
    return keep(*impl_, place, std::make_unique<CheckBox>(*this, label, value, std::move(callback)));
}

List &Panel::add_list(std::string_view label, Place place, List::Options options) {
    return keep(*impl_, place, std::make_unique<List>(*this, label, options));
}

const std::vector<std::unique_ptr<Item>> &Panel::items() const {
    return impl_->items;
}
Item *Panel::first_item() const {
    return impl_->items.empty() ? nullptr : impl_->items[0].get();
}
void Panel::set_default_item(Button &button) {
    impl_->default_button = &button;
}
void Panel::set_cancel_item(Button &button) {
    impl_->cancel_button = &button;
}

void Panel::set_background_event(std::function<bool(Panel &, const Event &)> callback) {
    impl_->background = std::move(callback);
    impl_->keystrokes = true;
}

void Panel::accept_keystrokes(bool accept) {
    impl_->keystrokes = accept;
}

void Panel::fit() {
    impl_->lay_out();
    impl_->frame->impl().lay_out();
}

Size Panel::size() const {
    const Size wanted = impl_->wanted();
    return {unscaled(wanted.w), unscaled(wanted.h)};
}

void Panel::set_size(Size size) {
    impl_->asked = {px(size.w), px(size.h)};
    impl_->frame->impl().lay_out();
}

Point Panel::position() const {
    return unscaled(Point{impl_->group->x(), impl_->group->y()});
}

}  // namespace brindle::tk
