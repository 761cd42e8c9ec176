#include "toolkit/notice.hpp"

#include <FL/fl_draw.H>

#include <algorithm>
#include <utility>

#include "toolkit/canvas.hpp"
#include "toolkit/dispatch.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/item_view.hpp"
#include "toolkit/notice_layout.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"
#include "toolkit/x11.hpp"

namespace brindle::tk {

namespace {

class NoticeFrame : public Frame {
  public:
    explicit NoticeFrame(const NoticeSpec &spec);
    int run();

  private:
    void add_lines(Panel &panel);
    void add_buttons(Panel &panel);
    void colour(Panel &panel);
    void place();
    bool key(const Event &event);
    void answer(int value) { answer_ = value; }
    int escape_value() const;
    void draw_marks(Box box) const;

    const NoticeSpec &spec_;
    std::vector<NoticeButton> buttons_;
    Button *default_ = nullptr;
    std::optional<int> answer_;
    NoticePosition position_;
};

NoticeFrame::NoticeFrame(const NoticeSpec &spec)
    : Frame(spec.place.frame, "Notice", FrameKind::notice), spec_(spec), buttons_(spec.buttons) {
    if (buttons_.empty()) buttons_.push_back({"Ok", 1});
    impl().window->border(0);
    impl().key_hook = [this](const Event &event) { return key(event); };
    impl().on_close = [this](Frame &) { answer(escape_value()); };
    impl().draw_ground = [this](Box box) { draw_marks(box); };
    Panel &panel = add_panel();
    add_lines(panel);
    fit();
    place();
}

void NoticeFrame::add_lines(Panel &panel) {
    std::string message;
    for (const std::string &line : spec_.message) message += (message.empty() ? "" : "\n") + line;
    const auto lines = notice_lines(message);
    const bool fits = static_cast<int>(lines.size()) <= notice_lines_max();
    for (std::size_t n = 0; fits && n < lines.size(); ++n) {
        panel.add_message(lines[n], n == 0 ? first_at(20, 16) : new_row(20, 2));
    }
    if (fits && !lines.empty()) {
        add_buttons(panel);
        return;
    }
    // Too long for the screen: the message scrolls above the buttons.
    add_buttons(panel);
    TextWindow &text = add_text_window();
    text.set_editable(false);
    text.set_wrap(true);
    text.set_text(clean_message(message));
}

void NoticeFrame::add_buttons(Panel &panel) {
    bool first = true;
    for (const NoticeButton &button : buttons_) {
        const Place start = panel.first_item() ? new_row(20, 14) : first_at(20, 10);
        Button &added = panel.add_button(button.label, std::exchange(first, false) ? start : SAME_ROW,
                                         [this, value = button.value](Button &) { answer(value); });
        if (!default_ || spec_.default_value == button.value) default_ = &added;
    }
    panel.set_default_item(*default_);
    colour(panel);
}

void NoticeFrame::colour(Panel &panel) {
    panel.impl().group->color(look::NOTICE);
    for (const auto &item : panel.items()) item->view().color(look::NOTICE);
}

void NoticeFrame::place() {
    TopWindow &window = *impl().window;
    const Size size{window.w(), window.h()};
    if (spec_.place.pointed) {
        const Point at = px(*spec_.place.pointed);
        position_ = beside(at, size, work_area(at));
    } else {
        Box owner = work_area({0, 0});
        if (spec_.place.frame) {
            const Frame::Impl &frame = spec_.place.frame->impl();
            const Point origin = frame.origin();
            owner = {origin.x, origin.y, frame.window->w(), frame.window->h()};
        }
        position_ = in_the_middle(owner, size, work_area({owner.x, owner.y}));
    }
    window.position(position_.at.x, position_.at.y);
}

int NoticeFrame::escape_value() const {
    if (spec_.escape_value) return *spec_.escape_value;
    const auto cancel = std::ranges::find(buttons_, "Cancel", &NoticeButton::label);
    return cancel == buttons_.end() ? buttons_.back().value : cancel->value;
}

bool NoticeFrame::key(const Event &event) {
    const auto trigger = std::ranges::find(spec_.triggers, event.code, &NoticeTrigger::code);
    if (event.code && trigger != spec_.triggers.end()) {
        answer(trigger->value);
        return true;
    }
    if (event.code != CODE_ESCAPE) return false;
    answer(escape_value());
    return true;
}

void NoticeFrame::draw_marks(Box box) const {
    fl_color(look::ACCENT);
    fl_rect(box.x, box.y, box.w, box.h);
    fl_rect(box.x + 1, box.y + 1, box.w - 2, box.h - 2);
    if (position_.side == NoticePosition::Side::none) return;
    const int size = px(8);
    const int x = std::clamp(position_.arrow.x, 2 * size, box.w - 2 * size);
    const int y = std::clamp(position_.arrow.y, 2 * size, box.h - 2 * size);
    switch (position_.side) {
        case NoticePosition::Side::below:
            return fl_polygon(x - size, size, x + size, size, x, 0);
        case NoticePosition::Side::above:
            return fl_polygon(x - size, box.h - size, x + size, box.h - size, x, box.h);
        case NoticePosition::Side::right:
            return fl_polygon(size, y - size, size, y + size, 0, y);
        default:
            return fl_polygon(box.w - size, y - size, box.w - size, y + size, box.w, y);
    }
}

int NoticeFrame::run() {
    if (!spec_.silent) bell();
    push_blocking_frame(*this);
    show();
    default_->take_focus();
    loop_until([this] { return answer_.has_value(); });
    pop_blocking_frame();
    hide();
    return answer_.value_or(escape_value());
}

Point middle_of(const Frame &frame, Box box) {
    const Point at = frame.position();
    return {at.x + box.x + box.w / 2, at.y + box.y + box.h / 2};
}

}  // namespace

NoticePlace place_on(Frame &frame) {
    return {&frame, std::nullopt};
}
NoticePlace place_on(Panel &panel) {
    return place_on(panel.frame());
}
NoticePlace place_on(TextWindow &window) {
    return place_on(window.frame());
}

NoticePlace place_at(Item &item) {
    const Box box = item.screen_box();
    return {&item.frame(), Point{box.x + box.w / 2, box.y + box.h / 2}};
}

NoticePlace place_at(Panel &panel, Point panel_point) {
    const Point at = panel.position();
    return {&panel.frame(), middle_of(panel.frame(), {at.x + panel_point.x, at.y + panel_point.y, 0, 0})};
}

NoticePlace place_at(Canvas &canvas, Point canvas_point) {
    return {&canvas.frame(), canvas.to_screen(canvas_point)};
}

int notice_prompt(const NoticeSpec &spec) {
    NoticeFrame frame(spec);
    return frame.run();
}

bool notice_shown() {
    return blocking_frame() != nullptr;
}

}  // namespace brindle::tk
