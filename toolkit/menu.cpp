#include "toolkit/menu.hpp"

#include <utility>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/popup.hpp"
#include "toolkit/scale.hpp"

namespace brindle::tk {

MenuItem::MenuItem(Menu &menu, std::string_view label, Callback callback)
    : menu_(menu), label_(label), callback_(std::move(callback)) {}

MenuItem::~MenuItem() = default;

void MenuItem::choose() {
    const Callback callback = callback_;
    if (callback && !inactive_) callback(*this);
}

Menu::Menu(std::string_view title) : title_(title) {}

Menu::~Menu() {
    if (!parent_) close_popups_of(*this);
}

MenuItem &Menu::add_item(std::string_view label, MenuItem::Callback callback) {
    return *items_.emplace_back(std::make_unique<MenuItem>(*this, label, std::move(callback)));
}

Menu &Menu::add_submenu(std::string_view label) {
    MenuItem &item = add_item(label, {});
    item.submenu_ = std::make_unique<Menu>(label);
    item.submenu_->parent_ = this;
    return *item.submenu_;
}

Menu &Menu::top() {
    Menu *menu = this;
    while (menu->parent_) menu = menu->parent_;
    return *menu;
}

void Menu::show(Canvas &canvas, const Event &event) {
    last_event_ = event;
    const Point start = unscaled(canvas.impl().view_start());
    last_event_.at = {event.at.x - start.x, event.at.y - start.y};
    open_popup(*this, &canvas.frame(), px(event.screen));
}

void Menu::show_at(Frame &owner, Point screen) {
    last_event_ = {};
    last_event_.screen = screen;
    open_popup(*this, &owner, px(screen));
}

}  // namespace brindle::tk
