#pragma once
// One menu on the screen.
#include <FL/Fl_Double_Window.H>

#include <vector>

#include "toolkit/geometry.hpp"
#include "toolkit/menu.hpp"

namespace brindle::tk {

class PopupWindow : public Fl_Double_Window {
  public:
    // min_width, most_height: px. A menu that needs more height scrolls.
    PopupWindow(Menu &menu, int min_width, int most_height);

    Menu &menu() const { return menu_; }
    const int id;
    int marked() const { return marked_; }
    void mark(int entry);  // -1: none; scrolls it into view
    // The next entry that can be chosen in that direction (1, -1) from an entry (or from outside, -1).
    int next_entry(int from, int direction) const;
    int entries() const { return static_cast<int>(menu_.items().size()); }
    Box screen_box() const { return {x(), y(), w(), h()}; }
    bool in_view(int entry) const { return entry >= first_ && entry < first_ + room_; }
    Box entry_box(int entry) const;    // on the screen; good while the entry is in view
    int entry_at(Point screen) const;  // -1: none, or one that is inactive
    MenuItem *marked_item() const;     // null: none
    int arrow_at(Point screen) const;  // -1, 1: what scrolls the menu back or on; 0: nothing
    bool scrolls() const { return room_ < entries(); }
    void scroll_by(int entries);

    void draw() override;

  private:
    int title_height() const;
    int arrow_height() const;  // 0: the menu does not scroll
    int entries_top() const;
    void draw_entry(int entry);
    void draw_arrows();

    Menu &menu_;
    int marked_ = -1;
    int entry_height_;
    int first_ = 0;      // entry in view
    int room_;           // for entries in view
    int mark_room_ = 0;  // before the labels, for ticks
};

}  // namespace brindle::tk
