#pragma once
// Command menus with pull-right submenus.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/event.hpp"
#include "toolkit/object.hpp"

namespace brindle::tk {

class Menu;
class Canvas;
class Frame;

class MenuItem : public Object {
  public:
    using Callback = std::function<void(MenuItem &)>;
    MenuItem(Menu &menu, std::string_view label, Callback callback);
    ~MenuItem() override;
    Menu &menu() const { return menu_; }  // the menu it is an entry of
    const std::string &label() const { return label_; }
    Menu *submenu() const { return submenu_.get(); }  // null: a plain entry
    bool inactive() const { return inactive_; }
    void set_inactive(bool inactive) { inactive_ = inactive; }
    bool checked() const { return checked_; }
    void set_checked(bool checked) { checked_ = checked; }  // shows a mark before the label
    void choose();                                          // calls the callback

  private:
    friend class Menu;
    Menu &menu_;
    std::string label_;
    Callback callback_;
    std::unique_ptr<Menu> submenu_;
    bool inactive_ = false;
    bool checked_ = false;
};

class Menu : public Object {
  public:
    explicit Menu(std::string_view title);
    ~Menu() override;

    const std::string &title() const { return title_; }
    MenuItem &add_item(std::string_view label, MenuItem::Callback callback);
    // An entry that pulls a menu right; the menu is titled as the entry and owned by it.
    Menu &add_submenu(std::string_view label);
    const std::vector<std::unique_ptr<MenuItem>> &items() const { return items_; }
    Menu *parent() const { return parent_; }  // the menu this one is pulled right from
    Menu &top();                              // the menu that was shown

    // Shows the menu at the event, which it remembers, and returns at once. The entry's callback runs when
    // the user has chosen it and the menu is gone. Busy frames and blocking notices do not matter.
    void show(Canvas &canvas, const Event &event);
    // The same at a place of the screen.
    void show_at(Frame &owner, Point screen);
    // Where it was shown last: in the canvas's coordinates less the view start, and on the screen.
    const Event &last_event() const { return last_event_; }
    Point last_screen_position() const { return last_event_.screen; }

  private:
    std::string title_;
    std::vector<std::unique_ptr<MenuItem>> items_;
    Menu *parent_ = nullptr;
    Event last_event_;
};

}  // namespace brindle::tk
