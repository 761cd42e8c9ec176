#pragma once
// The screen map, for tests and scripts; the source file's head says what stands in it.

namespace brindle {

// With BRINDLE_UI_MAP=FILE in the environment: keeps FILE up to date from now on, and answers those who ask
// through the X server whether everything so far has been dealt with. Without it nothing happens.
void start_ui_map();

// Brings it up to date now: for whoever keeps the event loop waiting, such as a run.
void update_ui_map();

}  // namespace brindle
