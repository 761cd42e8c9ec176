#pragma once
// One menu on the screen.
#include <FL/Fl_Double_Window.H>

#include <vector>

#include "toolkit/geometry.hpp"
#include "toolkit/menu.hpp"

namespace brindle::tk {

class PopupWindow : public Fl_Double_Window {
  public:
    // min_width: px.
    PopupWindow(Menu &menu, int min_width);

    Menu &menu() const { return menu_; }
    const int id;
    int marked() const { return marked_; }
    void mark(int entry);  // -1: none
    // The next entry that can be chosen in that direction (1, -1) from an entry (or from outside, -1).
    int next_entry(int from, int direction) const;
    int entries() const { return static_cast<int>(menu_.items().size()); }
    Box screen_box() const { return {x(), y(), w(), h()}; }
    Box entry_box(int entry) const;    // on the screen
    int entry_at(Point screen) const;  // -1: none, or one that is inactive
    MenuItem *marked_item() const;     // null: none

    void draw() override;

  private:
    int title_height() const;
    void draw_entry(int entry);

    Menu &menu_;
    int marked_ = -1;
    int entry_height_;
    int mark_room_ = 0;  // before the labels, for ticks
};

}  // namespace brindle::tk
