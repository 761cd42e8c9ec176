// Buttons, messages and check boxes.
#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <utility>

#include "toolkit/item_view.hpp"
#include "toolkit/items.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"

namespace brindle::tk {

namespace {

class ButtonView : public ItemView {
  public:
    ButtonView() : ItemView("button") {}
    std::function<void()> on_press;

    int label_room() const override { return 0; }
    Size control_size() const override {
        const int width = text_width(label_utf8()) + 2 * px(12);
        return {std::max(width, px(40)), px(look::CONTROL)};
    }
    Fl_Widget *focus_target() override { return this; }
    bool is_field() const override { return false; }
    bool key(const Event &event) override {
        if (event.code != ' ' && event.code != CODE_RETURN) return false;
        press();
        return true;
    }
    int handle(int event) override;
    void press() {
        const auto f = on_press;  // it may be replaced, or the button freed, meanwhile
        if (active_r() && f) f();
    }

  protected:
    void draw() override;
    Box label_box() const override { return {}; }

  private:
    bool down_ = false;
};

void ButtonView::draw() {
    const bool active = active_r() != 0;
    const bool is_default = item && default_button_of(*item) == item;
    const Fl_Color face = down_ ? look::BUTTON_DOWN : over() && active ? look::BUTTON_OVER : look::BUTTON;
    const Fl_Color border = !active ? look::FAINT : has_focus() || is_default ? look::ACCENT : look::BORDER;
    const Box box = control_box();
    fl_color(color());
    fl_rectf(x(), y(), w(), h());
    draw_frame_box(box, active ? face : color(), border, color());
    if (has_focus() && active) {
        fl_color(look::ACCENT);
        fl_rect(box.x + 1, box.y + 1, box.w - 2, box.h - 2);
    }
    draw_text(label_utf8(), box, Align::centre, text_colour());
}

int ButtonView::handle(int event) {
    const bool inside = Fl::event_inside(this) != 0;
    switch (event) {
        case FL_PUSH:
        case FL_DRAG:
            if (Fl::event_button() != FL_LEFT_MOUSE) return event == FL_PUSH;
            down_ = inside;
            redraw();
            return 1;
        case FL_RELEASE: {
            const bool chosen = std::exchange(down_, false) && inside;
            redraw();
            if (chosen) press();
            return 1;
        }
        default:
            return ItemView::handle(event);
    }
}

class MessageView : public ItemView {
  public:
    explicit MessageView(bool bold) : ItemView("message"), bold_(bold) {}
    int label_room() const override { return 0; }
    Size control_size() const override { return {text_width(label_utf8(), bold_), line_height()}; }
    int least_height() const override { return 0; }  // lines stand close: none may paint over the one before

  protected:
    Box label_box() const override { return control_box(); }
    bool bold_label() const override { return bold_; }

  private:
    bool bold_;
};

class CheckBoxView : public ItemView {
  public:
    CheckBoxView() : ItemView("checkbox") {}
    bool value = false;
    CheckBox::Callback callback;

    Size control_size() const override {
        const int text =
            label_left() || label_utf8().empty() ? 0 : px(look::LABEL_GAP) + text_width(label_utf8());
        return {px(SIZE) + 2 * RING + text, px(look::CONTROL)};
    }
    int label_room() const override { return label_left() ? ItemView::label_room() : 0; }
    std::string value_utf8() const override { return value ? "1" : "0"; }
    Fl_Widget *focus_target() override { return this; }
    bool is_field() const override { return false; }
    bool key(const Event &event) override {
        if (event.code == ' ') toggle();
        return event.code == ' ';
    }
    int handle(int event) override {
        if (event == FL_PUSH && Fl::event_button() == FL_LEFT_MOUSE) {
            toggle();
            return 1;
        }
        return event == FL_RELEASE ? 1 : ItemView::handle(event);
    }

  protected:
    Box label_box() const override {
        if (label_left()) return ItemView::label_box();
        const Box box = control_box();
        const int offset = px(SIZE) + 2 * RING + px(look::LABEL_GAP);
        return {box.x + offset, box.y, box.w - offset, box.h};
    }
    void draw_control() override;

  private:
    static constexpr int SIZE = 16;
    static constexpr int RING = 2;  // px around the box, for the mark of the keyboard
    // A label with a colon stands before its box, any other behind.
    bool label_left() const { return !label_utf8().empty() && label_utf8().back() == ':'; }
    void toggle();
};

void CheckBoxView::draw_control() {
    const Box control = control_box();
    const int size = px(SIZE);
    const Box box{control.x + RING, control.y + (control.h - size) / 2, size, size};
    const bool active = active_r() != 0;
    const Fl_Color face = !active ? look::GROUND : value ? look::ACCENT : look::FIELD;
    const Fl_Color border = !active ? look::FAINT : value || has_focus() ? look::ACCENT : look::BORDER;
    draw_frame_box(box, face, border);
    if (value) draw_tick(box, active ? look::ON_ACCENT : look::GREY_TEXT);
    if (has_focus()) {
        fl_color(look::ACCENT);
        fl_rect(box.x - RING, box.y - RING, box.w + 2 * RING, box.h + 2 * RING);
    }
}

void CheckBoxView::toggle() {
    value = !value;
    redraw();
    const auto f = callback;
    if (f) f(static_cast<CheckBox &>(*item), value);
}

ButtonView &button_view(const Item &item) {
    return static_cast<ButtonView &>(item.view());
}
CheckBoxView &check_view(const Item &item) {
    return static_cast<CheckBoxView &>(item.view());
}

}  // namespace

Button::Button(Panel &panel, std::string_view label, Callback callback)
    : Item(panel, std::make_unique<ButtonView>()) {
    set_label(label);
    set_callback(std::move(callback));
}

void Button::set_callback(Callback callback) {
    button_view(*this).on_press = [this, f = std::move(callback)] {
        if (f) f(*this);
    };
}

void Button::press() {
    button_view(*this).press();
}

Message::Message(Panel &panel, std::string_view text, bool bold)
    : Item(panel, std::make_unique<MessageView>(bold)) {
    set_text(text);
}

CheckBox::CheckBox(Panel &panel, std::string_view label, bool value, Callback callback)
    : Item(panel, std::make_unique<CheckBoxView>()) {
    set_label(label);
    set_value(value);
    set_callback(std::move(callback));
}

bool CheckBox::value() const {
    return check_view(*this).value;
}

void CheckBox::set_value(bool value) {
    check_view(*this).value = value;
    check_view(*this).redraw();
}

void CheckBox::set_callback(Callback callback) {
    check_view(*this).callback = std::move(callback);
}

}  // namespace brindle::tk
