#pragma once
// A panel as the toolkit's files see it.
#include <FL/Fl_Group.H>

#include <functional>
#include <memory>
#include <vector>

#include "toolkit/frame.hpp"
#include "toolkit/panel.hpp"

namespace brindle::tk {

struct Panel::Impl {
    explicit Impl(Frame &owner);

    Panel *self = nullptr;
    Frame *frame;
    std::unique_ptr<Fl_Group> group;
    std::vector<std::unique_ptr<Item>> items;  // they leave the group before it goes
    std::vector<Place> places;                 // of the items
    Button *default_button = nullptr;
    Button *cancel_button = nullptr;
    std::function<bool(Panel &, const Event &)> background;
    bool keystrokes = false;
    Size fitted;  // px, of the items with their margins
    Size asked;   // px, by set_size(); 0: the fitted size

    Button *button_labelled(std::string_view label) const;
    // Gives the items their places and works the fitted size out.
    void lay_out();
    Size wanted() const;
    void move_to(Box box);  // px, in the frame's window
};

// The button of the item's panel that Return presses; null: none.
const Button *default_button_of(const Item &item);
// The item has been answered by Return: the keyboard goes back to the frame's canvas, if it has one.
void leave_item(Item &item);

}  // namespace brindle::tk
