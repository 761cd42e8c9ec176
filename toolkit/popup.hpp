#pragma once
// Pop-up menu windows: one chain of menus at a time, which takes all pointer and keyboard input while it is
// shown.
#include <functional>
#include <string>
#include <vector>

#include "toolkit/geometry.hpp"

namespace brindle::tk {

class Frame;
class Menu;
class MenuItem;

struct PopupOptions {
    int min_width = 0;   // px
    int marked = -1;     // the entry marked at start
    bool below = false;  // a choice's list: it opens below the point, or ends above it, and has no title
};

// Shows the menu at a place of the screen (px). The owner is the frame it belongs to. Ends what is shown
// already.
void open_popup(Menu &menu, Frame *owner, Point at, PopupOptions options = {});
void close_popups();
// Ends what is shown if it is that menu, which is about to go.
void close_popups_of(const Menu &menu);
bool popup_shown();

// All pointer and key events while a popup is shown.
void popup_event(int event);

// What the screen map needs of a shown menu.
struct PopupEntry {
    const MenuItem *item;
    Box box;  // on the screen, px
};
struct PopupInfo {
    int id;
    int owner;  // id of the menu it is pulled from, or of its frame
    std::string title;
    Box box;
    unsigned long window;
    std::vector<PopupEntry> entries;
};
std::vector<PopupInfo> shown_popups();

// A new id for a frame or menu in the screen map.
int next_window_id();

}  // namespace brindle::tk
