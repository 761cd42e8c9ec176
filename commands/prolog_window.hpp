#pragma once
// Prolog in the main window: the query field and the output window.

namespace brindle::tk {
class Frame;
}

namespace brindle {

// Starts the Prolog child and connects it with the main window's parts, which have been made and must live as
// long as the event loop runs. "Quit" ends the child. Called once. False: no process could be started; the
// reason is on standard error, and the query field stays without input.
bool start_prolog_in(tk::Frame &main_frame);

}  // namespace brindle
