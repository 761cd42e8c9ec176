#pragma once
// The screen map, for tests and scripts (docs/map.md, "The UI map").
#include <functional>

namespace brindle {

// With BRINDLE_UI_MAP=FILE in the environment: keeps FILE up to date from now on, and answers those who ask
// through the X server whether everything so far has been dealt with. Returns what brings it up to date at
// once, for whoever keeps the event loop waiting. Without the variable nothing happens; the result is empty.
std::function<void()> start_ui_map();

}  // namespace brindle
