#pragma once
// Where all events of the X server pass before FLTK sees them, and the loops that wait for them.
#include <functional>

class Fl_Window;

namespace brindle::tk {

class Frame;

// Takes over FLTK's event dispatch; called once when the display has been opened.
void install_dispatch();

// Handles events until done() or notify_stop(). Loops may nest.
void loop_until(const std::function<bool()> &done);

// Runs f once, as soon as no callback and no nested loop is on the stack any more.
void when_quiet(std::function<void()> f);

// Control-C in a busy frame: calls what set_on_interrupt was given.
void interrupt();

// The frame that alone takes input because it is a blocking notice; null: every frame does.
Frame *blocking_frame();
void push_blocking_frame(Frame &frame);
void pop_blocking_frame();

}  // namespace brindle::tk
