// Sliders: a scale to drag on, with the value before it in a field.
#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <charconv>
#include <utility>

#include "toolkit/entry.hpp"
#include "toolkit/item_view.hpp"
#include "toolkit/items.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"

namespace brindle::tk {

namespace {

constexpr int KNOB = 11;
constexpr int GAP = 8;  // between the field and the scale

class SliderView : public ItemView {
  public:
    explicit SliderView(const Slider::Options &options);
    ~SliderView() override { remove(entry_); }

    int min;
    int max;
    Slider::Callback callback;
    int value() const { return value_; }
    void set(int value);

    Size control_size() const override {
        return {entry_width(digits()) + px(GAP) + px(width_), px(look::CONTROL)};
    }
    std::string value_utf8() const override { return entry_.utf8(); }
    Fl_Widget *focus_target() override { return &entry_; }
    bool takes_text() const override { return true; }
    bool is_field() const override { return true; }
    void focused() override { entry_.select_all(); }
    void commit() override;
    bool key(const Event &event) override;
    int handle(int event) override;

  protected:
    void place_control(Box box) override;
    void draw_control() override;

  private:
    int digits() const;
    int keep(int value) const { return std::clamp(value, min, std::max(min, max)); }
    int value_at_pointer() const;
    int knob_centre() const;
    void choose(int value);

    Entry entry_{12, true};
    Box track_;
    int width_;
    int value_ = 0;
    int value_before_ = 0;  // the value when dragging began
    bool dragged_ = false;
};

SliderView::SliderView(const Slider::Options &options)
    : ItemView("slider"), min(options.min), max(options.max), width_(options.width) {
    add(entry_);
    entry_.select_on_click = true;
    entry_.on_left = [this] { commit(); };
    set(options.value);
}

// Room for the widest number, so that a change of the range moves nothing.
int SliderView::digits() const {
    const std::size_t widest = std::max(std::to_string(min).size(), std::to_string(max).size());
    return std::max(4, static_cast<int>(widest));
}

void SliderView::set(int value) {
    value_ = keep(value);
    entry_.set_utf8(std::to_string(value_));
    if (Fl::focus() == &entry_) entry_.select_all();
    redraw();
}

void SliderView::choose(int value) {
    const int old = value_;
    set(value);
    const auto f = callback;
    if (f && value_ != old) f(static_cast<Slider &>(*item), value_);
}

void SliderView::commit() {
    if (dragged_) return;
    const std::string text = entry_.utf8();
    long typed = value_;
    std::from_chars(text.data(), text.data() + text.size(), typed);
    choose(static_cast<int>(std::clamp<long>(typed, min, std::max(min, max))));
}

bool SliderView::key(const Event &event) {
    switch (event.code) {
        case CODE_RETURN:
            commit();
            leave_item(*item);
            return true;
        case EVENT_UP:
        case EVENT_DOWN:
            commit();
            choose(value_ + (event.code == EVENT_UP ? 1 : -1));
            return true;
        default:
            return false;
    }
}

void SliderView::place_control(Box box) {
    const int field = entry_width(digits());
    entry_.resize(box.x, box.y, field, box.h);
    track_ = {box.x + field + px(GAP), box.y, box.w - field - px(GAP), box.h};
}

int SliderView::knob_centre() const {
    const int room = track_.w - px(KNOB);
    const int range = std::max(1, max - min);
    const auto share = static_cast<double>(value_ - min) / range;
    return track_.x + px(KNOB) / 2 + static_cast<int>(std::lround(room * share));
}

int SliderView::value_at_pointer() const {
    const int room = std::max(1, track_.w - px(KNOB));
    const double share = static_cast<double>(Fl::event_x() - track_.x - px(KNOB) / 2) / room;
    return keep(min + static_cast<int>(std::lround(share * (max - min))));
}

void SliderView::draw_control() {
    const bool active = active_r() != 0;
    const int middle = track_.y + track_.h / 2;
    const int thickness = px(4);
    const int knob = px(KNOB);
    const int centre = knob_centre();
    const auto bar = [&](int left, int right, Fl_Color colour) {
        fl_color(colour);
        fl_rectf(left, middle - thickness / 2, right - left, thickness);
    };
    bar(centre, track_.x + track_.w - knob / 2, active ? look::BORDER : look::FAINT);
    bar(track_.x + knob / 2, centre, active ? look::ACCENT : look::BORDER);
    const int height = px(18);
    const Box box{centre - knob / 2, middle - height / 2, knob, height};
    draw_frame_box(box, active ? look::BUTTON : look::GROUND, active ? look::ACCENT : look::FAINT);
}

int SliderView::handle(int event) {
    const bool on_track = track_.contains({Fl::event_x(), Fl::event_y()});
    switch (event) {
        case FL_PUSH:
            if (!on_track || Fl::event_button() != FL_LEFT_MOUSE) return ItemView::handle(event);
            commit();
            entry_.take_focus();
            dragged_ = true;
            [[fallthrough]];
        case FL_DRAG: {
            if (!dragged_) return ItemView::handle(event);
            const int before = value_;
            set(value_at_pointer());
            if (event == FL_PUSH) value_before_ = before;
            return 1;
        }
        case FL_RELEASE:
            if (!std::exchange(dragged_, false)) return ItemView::handle(event);
            value_ = value_at_pointer();  // FLTK may tell of the way to here only afterwards
            choose(std::exchange(value_, value_before_));
            leave_item(*item);
            return 1;
        case FL_MOUSEWHEEL:
            if (!Fl::event_inside(this)) return 0;  // FLTK offers the wheel to the whole window
            commit();
            choose(value_ - Fl::event_dy());
            return 1;
        default:
            return ItemView::handle(event);
    }
}

SliderView &slider_view(const Item &item) {
    return static_cast<SliderView &>(item.view());
}

}  // namespace

Slider::Slider(Panel &panel, std::string_view label, Options options, Callback callback)
    : Item(panel, std::make_unique<SliderView>(options)) {
    set_label(label);
    set_callback(std::move(callback));
}

int Slider::value() const {
    return slider_view(*this).value();
}
void Slider::set_value(int value) {
    slider_view(*this).set(value);
}
int Slider::min() const {
    return slider_view(*this).min;
}
int Slider::max() const {
    return slider_view(*this).max;
}

void Slider::set_min(int min) {
    slider_view(*this).min = min;
    set_value(value());
}

void Slider::set_max(int max) {
    slider_view(*this).max = max;
    set_value(value());
}

void Slider::set_callback(Callback callback) {
    slider_view(*this).callback = std::move(callback);
}

}  // namespace brindle::tk
