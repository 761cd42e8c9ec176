// Choices: the current option in a box, the others in a list that drops down.
#include <FL/Fl.H>

#include <algorithm>
#include <utility>

#include "toolkit/frame.hpp"
#include "toolkit/item_view.hpp"
#include "toolkit/items.hpp"
#include "toolkit/menu.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/popup.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"

namespace brindle::tk {

namespace {

class ChoiceView : public ItemView {
  public:
    explicit ChoiceView(std::vector<std::string> given) : ItemView("choice"), options(std::move(given)) {
        for (const std::string &option : options) shown_.push_back(to_display(option));
    }
    const std::vector<std::string> options;
    int value = 0;
    Choice::Callback callback;

    Size control_size() const override {
        int width = 0;
        for (const std::string &option : shown_) width = std::max(width, text_width(option));
        return {width + px(look::PADDING) * 2 + px(ARROW), px(look::CONTROL)};
    }
    std::string value_utf8() const override { return shown_.empty() ? std::string() : shown_[index()]; }
    Fl_Widget *focus_target() override { return this; }
    bool is_field() const override { return false; }
    bool key(const Event &event) override;
    int handle(int event) override;

  protected:
    void draw_control() override;

  private:
    static constexpr int ARROW = 18;
    std::size_t index() const { return static_cast<std::size_t>(value); }
    void choose(int n);
    void drop_down();

    std::vector<std::string> shown_;
    std::unique_ptr<Menu> menu_;
};

void ChoiceView::draw_control() {
    const Box box = control_box();
    const bool active = active_r() != 0;
    draw_field(box, has_focus(), active);
    const int padding = px(look::PADDING);
    const Box text{box.x + padding, box.y, box.w - padding - px(ARROW), box.h};
    draw_text(value_utf8(), text, Align::left, text_colour());
    draw_triangle({box.x + box.w - px(ARROW), box.y, px(ARROW), box.h}, 'v', text_colour());
}

void ChoiceView::choose(int n) {
    value = n;
    redraw();
    const auto f = callback;
    if (f) f(static_cast<Choice &>(*item), value);
}

void ChoiceView::drop_down() {
    menu_ = std::make_unique<Menu>("");
    for (int n = 0; n < static_cast<int>(options.size()); ++n) {
        menu_->add_item(options[static_cast<std::size_t>(n)], [this, n](MenuItem &) { choose(n); })
            .set_checked(n == value);
    }
    const Box box = item->screen_box();
    const Point below{px(box.x), px(box.y + box.h)};
    open_popup(*menu_, &item->frame(), below, {control_box().w, value, true});
}

bool ChoiceView::key(const Event &event) {
    const int last = static_cast<int>(options.size()) - 1;
    if (event.code == ' ') {
        drop_down();
    } else if (event.code == EVENT_UP && value > 0) {
        choose(value - 1);
    } else if (event.code == EVENT_DOWN && value < last) {
        choose(value + 1);
    } else {
        return event.code == EVENT_UP || event.code == EVENT_DOWN;
    }
    return true;
}

int ChoiceView::handle(int event) {
    if (event != FL_PUSH) return ItemView::handle(event);
    const Box box = control_box();
    if (box.contains({Fl::event_x(), Fl::event_y()})) drop_down();
    return 1;
}

ChoiceView &choice_view(const Item &item) {
    return static_cast<ChoiceView &>(item.view());
}

}  // namespace

Choice::Choice(Panel &panel, std::string_view label, std::vector<std::string> options, Callback callback)
    : Item(panel, std::make_unique<ChoiceView>(std::move(options))) {
    set_label(label);
    set_callback(std::move(callback));
}

int Choice::value() const {
    return choice_view(*this).value;
}

void Choice::set_value(int value) {
    ChoiceView &view = choice_view(*this);
    view.value = std::clamp(value, 0, static_cast<int>(view.options.size()) - 1);
    view.redraw();
}

std::string Choice::option(int n) const {
    return choice_view(*this).options.at(static_cast<std::size_t>(n));
}

void Choice::set_callback(Callback callback) {
    choice_view(*this).callback = std::move(callback);
}

}  // namespace brindle::tk
