#pragma once
// The screen map: what BRINDLE_UI_MAP=FILE asks for. See docs of the file's lines in ui_map.cpp.
#include <X11/Xlib.h>

namespace brindle::tk {

// Rewrites the map if it is asked for and the windows have changed. Called when a loop has nothing else to
// do.
void update_ui_map();

// Answers a client message that asks when all events before it have been dealt with: after the next update
// the root window's property of the same name holds the message's number. Result: it was one.
int sync_ui_map(const XClientMessageEvent &message);

}  // namespace brindle::tk
