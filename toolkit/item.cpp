// What all items share.
#include <FL/Fl.H>

#include <utility>

#include "toolkit/frame_impl.hpp"
#include "toolkit/item_view.hpp"
#include "toolkit/items.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"

namespace brindle::tk {

Item::Item(Panel &panel, std::unique_ptr<ItemView> view) : panel_(panel), view_(std::move(view)) {
    view_->item = this;
    panel.impl().group->add(view_.get());
}

Item::~Item() = default;

Frame &Item::frame() const {
    return panel_.frame();
}

std::string Item::label() const {
    return from_display(view_->label_utf8());
}

void Item::set_label(std::string_view label) {
    std::string shown = to_display(label);
    if (shown == view_->label_utf8()) return;
    view_->set_label_utf8(std::move(shown));
    panel_.impl().lay_out();
    frame().impl().grow();
}

bool Item::inactive() const {
    return !view_->active();
}

void Item::set_inactive(bool inactive) {
    if (inactive == this->inactive()) return;
    if (inactive) {
        view_->deactivate();
    } else {
        view_->activate();
        frame().impl().offer_focus(*view_);
    }
}

Box Item::box() const {
    const Fl_Group &group = *panel_.impl().group;
    return {unscaled(view_->x() - group.x()), unscaled(view_->y() - group.y()), unscaled(view_->w()),
            unscaled(view_->h())};
}

Box Item::screen_box() const {
    const Box control = view_->map_box();
    const Point frame_at = frame().impl().origin();
    return {unscaled(frame_at.x + control.x), unscaled(frame_at.y + control.y), unscaled(control.w),
            unscaled(control.h)};
}

void Item::take_focus() {
    frame().impl().give_focus(*view_);
}

void leave_item(Item &item) {
    Frame::Impl &frame = item.frame().impl();
    if (frame.canvas) {
        frame.canvas->take_focus();
    } else {
        frame.give_focus(item.view());
    }
}

}  // namespace brindle::tk
