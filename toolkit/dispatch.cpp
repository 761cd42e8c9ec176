// Every event on its way to a window: menus and notices take what is theirs, busy frames lose what they may
// not see.
#include "toolkit/dispatch.hpp"

#include <FL/Fl.H>

#include <vector>

#include "toolkit/frame_impl.hpp"
#include "toolkit/popup.hpp"
#include "toolkit/ui_map.hpp"
#include "toolkit/x11.hpp"

namespace brindle::tk {

namespace {

std::vector<Frame *> blocking;

bool is_input(int event) {
    switch (event) {
        case FL_PUSH:
        case FL_DRAG:
        case FL_RELEASE:
        case FL_MOVE:
        case FL_ENTER:
        case FL_MOUSEWHEEL:
        case FL_KEYBOARD:
        case FL_KEYUP:
        case FL_SHORTCUT:
        case FL_CLOSE:
            return true;
        default:
            return false;
    }
}

// Input for a frame that may not have it now. Keys go to the notice, wherever they were typed.
void handle_blocked(int event) {
    Frame *notice = blocking_frame();
    if (!notice) return;
    if (event == FL_KEYBOARD) notice->impl().handle_key();
    if (event == FL_PUSH) notice->show();
}

int handle_in_frame(int event, Fl_Window *window, Frame::Impl &frame) {
    if (event == FL_KEYBOARD) {
        frame.handle_key();
        return 1;
    }
    if (event == FL_KEYUP || event == FL_SHORTCUT) return 1;
    if (event == FL_PUSH) frame.commit_elsewhere();
    if (event == FL_FOCUS || event == FL_UNFOCUS) frame.has_keyboard = event == FL_FOCUS;
    return Fl::handle_(event, window);
}

void remember_focus() {
    Fl_Widget *focus = Fl::focus();
    if (!focus) return;
    if (Frame::Impl *frame = frame_of(focus->window())) frame->last_focus = focus;
}

int dispatch(int event, Fl_Window *window) {
    if (popup_shown() && is_input(event)) {
        popup_event(event);
        return 1;
    }
    Frame::Impl *frame = frame_of(window);
    if (!frame) return Fl::handle_(event, window);
    const bool blocked = frame->busy || (blocking_frame() && &frame->self != blocking_frame());
    if (blocked && is_input(event)) {
        handle_blocked(event);
        if (event == FL_KEYBOARD && !blocking_frame() && decode_key().code == CODE_CTRL_C) interrupt();
        return 1;
    }
    const int done = handle_in_frame(event, window, *frame);
    remember_focus();
    return done;
}

bool by_a_grab(const XFocusChangeEvent &event) {
    return event.mode == NotifyGrab || event.mode == NotifyUngrab;
}

// Without a window manager a frame gets the keyboard when it comes to the screen or is clicked on.
void take_keyboard(const Frame::Impl &frame) {
    const Frame *notice = blocking_frame();
    const Frame::Impl &taker = notice ? notice->impl() : frame;
    focus_window(fl_xid(taker.window.get()));
}

// Managers give the keyboard to most new windows, but not to all; a pop-up is of no use without it.
void opened(Frame::Impl &frame) {
    frame.mapped = true;
    if (!window_manager_runs()) {
        take_keyboard(frame);
    } else if (frame.kind != FrameKind::base && !another_program_has_keyboard()) {
        ask_for_keyboard(fl_xid(frame.window.get()));
    }
}

int look_at(const XEvent &event) {
    Frame::Impl *frame = frame_of(fl_find(event.xany.window));
    switch (event.type) {
        case FocusIn:
        case FocusOut:
            return by_a_grab(event.xfocus);
        case MapNotify:
            if (frame && fl_find(event.xmap.window) == frame->window.get()) opened(*frame);
            return 0;
        case ButtonPress:
            if (frame && !popup_shown() && !window_manager_runs()) take_keyboard(*frame);
            return 0;
        case ClientMessage:
            return sync_ui_map(event.xclient);
        default:
            return 0;
    }
}

}  // namespace

Frame *blocking_frame() {
    return blocking.empty() ? nullptr : blocking.back();
}
void push_blocking_frame(Frame &frame) {
    blocking.push_back(&frame);
}
void pop_blocking_frame() {
    blocking.pop_back();
}

void install_dispatch() {
    Fl::event_dispatch(dispatch);
    Fl::add_system_handler([](void *event, void *) { return look_at(*static_cast<const XEvent *>(event)); },
                           nullptr);
}

}  // namespace brindle::tk
