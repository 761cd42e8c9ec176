#pragma once
// "Tree Size Controls", for whoever changes the sizes beside it.

namespace brindle {

struct TreeWindow;

// Makes the sliders show the window's current sizes.
void show_sizes(TreeWindow &tw);

}  // namespace brindle
