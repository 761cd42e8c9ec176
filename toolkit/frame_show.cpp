// Frames coming to and going from the screen: places, hints for the window manager, the keyboard.
#include <FL/Fl.H>
#include <X11/Xatom.h>

#include <algorithm>
#include <array>
#include <utility>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/item_view.hpp"
#include "toolkit/popup.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/x11.hpp"
#include "toolkit/x_options.hpp"

namespace brindle::tk {

namespace {

constexpr int NEIGHBOUR_GAP = 12;
constexpr int CASCADE = 40;

// Room that the window manager's decoration takes: left, right, top, bottom; px.
std::array<int, 4> decoration(const Frame::Impl &frame) {
    std::array<int, 4> extents{};
    for (const Frame::Impl *known : all_frames()) {
        if (known->kind != frame.kind && known->kind == Frame::Impl::Kind::notice) continue;
        if (!known->mapped || !known->window->shown()) continue;
        Atom type = None;
        int format = 0;
        unsigned long count = 0;
        unsigned long left = 0;
        unsigned char *data = nullptr;
        XGetWindowProperty(x_display(), fl_xid(known->window.get()), atom("_NET_FRAME_EXTENTS"), 0, 4, False,
                           XA_CARDINAL, &type, &format, &count, &left, &data);
        const bool good = data && format == 32 && count == 4;
        for (std::size_t n = 0; good && n < 4; ++n) {
            extents[n] = static_cast<int>(reinterpret_cast<unsigned long *>(data)[n]);
        }
        if (data) XFree(data);
        if (good) break;
    }
    return extents;
}

// The first base frame is where -geometry says.
bool place_as_asked(Frame::Impl &frame) {
    static bool used = false;
    if (frame.kind != Frame::Impl::Kind::base || used) return false;
    used = true;
    const std::string &geometry = x_options().geometry;
    if (geometry.empty()) return false;
    int x = 0;
    int y = 0;
    unsigned w = 0;
    unsigned h = 0;
    const int given = XParseGeometry(geometry.c_str(), &x, &y, &w, &h);
    const int width = (given & WidthValue) != 0 ? static_cast<int>(w) : frame.window->w();
    const int height = (given & HeightValue) != 0 ? static_cast<int>(h) : frame.window->h();
    frame.window->size(width, height);
    if (!(given & XValue) || !(given & YValue)) return false;
    const Box area = work_area({0, 0});
    if (given & XNegative) x += area.x + area.w - width;
    if (given & YNegative) y += area.y + area.h - height;
    frame.window->position(x, y);
    return true;
}

// A base frame beside its owner if there is room, else a step down from it; others in the middle of it.
Point default_place(const Frame::Impl &frame) {
    const TopWindow &window = *frame.window;
    if (!frame.owner) return {0, 0};
    const TopWindow &owner = *frame.owner->impl().window;
    const Box area = work_area({owner.x(), owner.y()});
    if (frame.kind != Frame::Impl::Kind::base) {
        return {owner.x() + (owner.w() - window.w()) / 2, owner.y() + (owner.h() - window.h()) / 2};
    }
    const int beside = owner.x() + owner.w() + px(NEIGHBOUR_GAP);
    if (beside + window.w() <= area.x + area.w) return {beside, owner.y()};
    const int below = owner.y() + owner.h() + px(NEIGHBOUR_GAP);
    if (below + window.h() <= area.y + area.h) return {owner.x(), below};
    return {owner.x() + px(CASCADE), owner.y() + px(CASCADE)};
}

// Moves the window so that all of it, decoration included, is on the screen.
void clamp_to_screen(Frame::Impl &frame, Point at) {
    TopWindow &window = *frame.window;
    const Box area = work_area(at);
    const auto [left, right, top, bottom] = decoration(frame);
    const int x = std::min(at.x, area.x + area.w - window.w() - left - right);
    const int y = std::min(at.y, area.y + area.h - window.h() - top - bottom);
    window.position(std::max(x, area.x), std::max(y, area.y));
}

void place(Frame::Impl &frame) {
    if (place_as_asked(frame)) return;
    TopWindow &window = *frame.window;
    if (frame.kind == Frame::Impl::Kind::notice) return;
    if (frame.placed) return clamp_to_screen(frame, {window.x(), window.y()});
    // A window manager finds places for base frames itself.
    if (frame.kind == Frame::Impl::Kind::base && window_manager_runs()) return;
    clamp_to_screen(frame, default_place(frame));
}

// What FLTK does not tell the window manager.
void set_hints(const Frame::Impl &frame) {
    const Window window = fl_xid(frame.window.get());
    if (frame.kind == Frame::Impl::Kind::base || !window) return;
    const Atom dialog = atom("_NET_WM_WINDOW_TYPE_DIALOG");
    XChangeProperty(x_display(), window, atom("_NET_WM_WINDOW_TYPE"), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(&dialog), 1);
    if (!frame.owner) return;
    const Window owner = fl_xid(frame.owner->impl().window.get());
    if (owner) XSetTransientForHint(x_display(), window, owner);
}

void activate(const Frame::Impl &frame) {
    const Window window = fl_xid(frame.window.get());
    XRaiseWindow(x_display(), window);
    if (window_manager_runs()) {
        ask_for_keyboard(window);
    } else {
        focus_window(window);
    }
}

// Without a window manager the keyboard goes on to the owner, or to any frame that is left.
void pass_focus_on(const Frame::Impl &hidden) {
    if (window_manager_runs()) return;
    const Frame::Impl *heir = hidden.owner ? &hidden.owner->impl() : nullptr;
    for (const Frame::Impl *frame : all_frames()) {
        if (!heir || !heir->mapped) heir = frame != &hidden && frame->mapped ? frame : heir;
    }
    if (heir && heir->mapped && heir->window->shown()) focus_window(fl_xid(heir->window.get()));
}

}  // namespace

Point Frame::Impl::origin() const {
    const Window xid = window->shown() ? fl_xid(window.get()) : 0;
    return xid && mapped ? place_on_screen(xid) : Point{window->x(), window->y()};
}

void Frame::Impl::show_window() {
    if (destroyed) return;
    const bool raise = window->shown() && mapped;
    if (raise) {
        activate(*this);
    } else if (!window->shown()) {
        place(*this);
        lay_out();
        set_size_range();
        static bool iconic = x_options().iconic;
        if (std::exchange(iconic, false)) {
            window->iconize();
        } else {
            window->show();
        }
        set_hints(*this);
        if (busy) self.set_busy(true);
    }
    focus_on(first_focus());
    if (ItemView *view = view_of(last_focus)) view->focused();
}

void Frame::Impl::hide_window() {
    if (!window->shown()) return;
    close_popups();
    const bool was_mapped = std::exchange(mapped, false);
    has_keyboard = false;  // FLTK does not tell of the server's event for a window that is gone
    window->hide();
    if (was_mapped) pass_focus_on(*this);
}

void Frame::Impl::close() {
    if (busy) return;
    const auto callback = on_close;
    if (callback) {
        callback(self);
    } else if (kind == Kind::command) {
        self.hide();
    }
}

void Frame::show_at(Point screen) {
    impl_->placed = true;
    if (impl_->window->shown()) hide();
    impl_->window->position(px(screen.x), px(screen.y));
    show();
}

}  // namespace brindle::tk
