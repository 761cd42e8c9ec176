#pragma once
// The main window: "Quit", the Prolog query field, "Edit", the output window.
#include <string>
#include <string_view>

namespace brindle::tk {
class Button;
class Frame;
class TextWindow;
}  // namespace brindle::tk

namespace brindle {

// The main frame, hidden and empty; the toolkit is ready afterwards. The caller owns it.
// Its parts carry it and one another under keys (gui/keys.hpp).
void create_main_window(tk::Frame &main_frame);

// The label of the "Edit" button for a corpus name: "Edit %s", a name of more than 34 bytes cut to its first
// 31 and "...".
std::string edit_label(std::string_view corpus);

// The corpus has got a new name: "Edit" and the titles of the main frame and the tree frames show it.
void show_corpus_name(tk::Frame &main_frame);

// The callback of "Edit": opens one more tree window on tree 1.
void clone(tk::Button &button);

}  // namespace brindle
