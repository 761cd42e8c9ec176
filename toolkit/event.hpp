#pragma once
// Decoded pointer and keyboard events, as canvases and panels hand them to their users.
#include "toolkit/geometry.hpp"

namespace brindle::tk {

// Codes of events that are no characters. A character's code is its Unicode number: 3 Control-C, 13 Return,
// 27 Escape.
enum EventCode : int {
    EVENT_SELECT = 0x200001,  // left pointer button
    EVENT_ADJUST,             // middle
    EVENT_MENU,               // right
    EVENT_UP,
    EVENT_DOWN,
    EVENT_LEFT,
    EVENT_RIGHT,
    EVENT_PAGE_UP,
    EVENT_PAGE_DOWN,
    EVENT_HOME,
    EVENT_END,
};

inline constexpr int CODE_CTRL_C = 3;
inline constexpr int CODE_RETURN = 13;
inline constexpr int CODE_ESCAPE = 27;

struct Event {
    int code = 0;
    bool negative = false;  // a release; its press came before with the same code
    Point at;               // in a canvas: canvas coordinates (view start added); in a panel: the panel's
    Point screen;           // the same place on the screen
    bool control = false;
    bool shift = false;
    bool meta = false;  // Alt or Meta
};

}  // namespace brindle::tk
