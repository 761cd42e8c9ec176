// The menus on the screen: a chain from the one that was shown to the submenu pulled right last.
#include "toolkit/popup.hpp"

#include <FL/Fl.H>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <memory>

#include "toolkit/frame_impl.hpp"
#include "toolkit/popup_window.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/x11.hpp"

namespace brindle::tk {

namespace {

constexpr int STILL = 4;              // px that the pointer may move before it has moved
constexpr double SCROLL_STEP = 0.06;  // seconds between two entries while the pointer is on an arrow
constexpr int WHEEL_ENTRIES = 3;

// A window is in the middle of its event when it goes: FLTK frees it later.
struct Later {
    void operator()(PopupWindow *window) const {
        window->hide();
        Fl::delete_widget(window);
    }
};

struct Session {
    std::vector<std::unique_ptr<PopupWindow, Later>> levels;
    Frame *owner = nullptr;
    Point opened;       // where the pointer was
    bool live = false;  // the pointer has moved or a button was pressed since: a release chooses
};

Session session;

Point pointer() {
    return {Fl::event_x_root(), Fl::event_y_root()};
}

Point kept_on_screen(Point at, Size size) {
    const Box area = work_area(at);
    return {std::clamp(at.x, area.x, std::max(area.x, area.x + area.w - size.w)),
            std::clamp(at.y, area.y, std::max(area.y, area.y + area.h - size.h))};
}

PopupWindow &push_level(Menu &menu, int min_width, Point at) {
    const int most_height = work_area(at).h;
    return *session.levels.emplace_back(new PopupWindow(menu, min_width, most_height));
}

void show_level(PopupWindow &window, Point at) {
    window.position(at.x, at.y);
    window.show();
}

void close_below(std::size_t level) {
    while (session.levels.size() > level + 1) session.levels.pop_back();
}

// Pulls right the submenu of the entry marked in the last menu.
void open_submenu() {
    PopupWindow &from = *session.levels.back();
    MenuItem *item = from.marked_item();
    if (!item || !item->submenu()) return;
    const Box entry = from.entry_box(from.marked());
    PopupWindow &window = push_level(*item->submenu(), 0, {entry.x, entry.y});
    const Box area = work_area({entry.x, entry.y});
    const int right = entry.x + entry.w - 2;
    const bool fits = right + window.w() <= area.x + area.w;
    const Point at{fits ? right : entry.x - window.w() + 2, entry.y - 2};
    show_level(window, kept_on_screen(at, {window.w(), window.h()}));
}

void choose_marked() {
    MenuItem *item = session.levels.back()->marked_item();
    if (!item || item->inactive()) return;
    if (item->submenu()) {
        open_submenu();
        return;
    }
    close_popups();
    item->choose();
}

// The deepest menu under the pointer; levels.size(): none.
std::size_t level_at(Point at) {
    for (std::size_t n = session.levels.size(); n-- > 0;) {
        if (session.levels[n]->screen_box().contains(at)) return n;
    }
    return session.levels.size();
}

void notice_move(Point at) {
    if (std::abs(at.x - session.opened.x) > STILL || std::abs(at.y - session.opened.y) > STILL)
        session.live = true;
}

// Scrolls on as long as the pointer stays on an arrow.
void scroll_again(void *) {
    const Point at = pointer();
    const std::size_t level = level_at(at);
    const int direction = level < session.levels.size() ? session.levels[level]->arrow_at(at) : 0;
    if (direction == 0) return;
    session.levels[level]->scroll_by(direction);
    Fl::repeat_timeout(SCROLL_STEP, scroll_again);
}

void scroll_at(Point at, int entries) {
    const std::size_t level = level_at(at);
    if (level == session.levels.size() || !session.levels[level]->scrolls()) return;
    close_below(level);
    session.levels[level]->mark(-1);
    session.levels[level]->scroll_by(entries);
}

void follow_pointer(Point at) {
    notice_move(at);
    if (!session.live) return;
    const std::size_t level = level_at(at);
    if (level == session.levels.size()) return session.levels.back()->mark(-1);
    PopupWindow &window = *session.levels[level];
    if (window.arrow_at(at) != 0 && !Fl::has_timeout(scroll_again))
        Fl::add_timeout(SCROLL_STEP, scroll_again);
    const int entry = window.entry_at(at);
    const bool pulled = session.levels.size() > level + 1;
    if (pulled && entry == window.marked()) return session.levels.back()->mark(-1);
    close_below(level);
    window.mark(entry);
    open_submenu();
}

void release(Point at) {
    notice_move(at);  // FLTK may tell of the way to here only afterwards
    if (!session.live) return;
    const std::size_t level = level_at(at);
    if (level == session.levels.size()) return close_popups();
    const int entry = session.levels[level]->entry_at(at);
    if (entry < 0) return;
    const bool pulled = session.levels.size() > level + 1 && session.levels[level]->marked() == entry;
    if (pulled) return;
    close_below(level);
    session.levels[level]->mark(entry);
    choose_marked();
}

void press(Point at) {
    if (level_at(at) == session.levels.size()) return close_popups();
    session.live = true;
    follow_pointer(at);
}

void mark_letter(int letter) {
    PopupWindow &window = *session.levels.back();
    const auto &items = window.menu().items();
    const auto wanted = std::tolower(letter);
    const auto found = std::ranges::find_if(items, [wanted](const auto &item) {
        return !item->label().empty() && std::tolower(static_cast<unsigned char>(item->label()[0])) == wanted;
    });
    if (found != items.end()) window.mark(static_cast<int>(found - items.begin()));
}

void pull_right() {
    open_submenu();
    PopupWindow &last = *session.levels.back();
    if (last.marked() < 0) last.mark(last.next_entry(-1, 1));
}

void key() {
    PopupWindow &last = *session.levels.back();
    const Event event = decode_key();
    switch (event.code) {
        case EVENT_UP:
            return last.mark(last.next_entry(last.marked(), -1));
        case EVENT_DOWN:
            return last.mark(last.next_entry(last.marked(), 1));
        case EVENT_HOME:
            return last.mark(last.next_entry(-1, 1));
        case EVENT_END:
            return last.mark(last.next_entry(-1, -1));
        case EVENT_RIGHT:
            return pull_right();
        case EVENT_LEFT:
            if (session.levels.size() > 1) session.levels.pop_back();
            return;
        case CODE_RETURN:
        case ' ': {
            const std::size_t before = session.levels.size();
            choose_marked();
            if (session.levels.size() > before) pull_right();
            return;
        }
        case CODE_ESCAPE:
        case CODE_CTRL_C:
            return close_popups();
        default:
            if (event.code > ' ' && event.code < 127) mark_letter(event.code);
    }
}

void grab_input(const PopupWindow &window) {
    const Window xid = fl_xid(&window);
    constexpr unsigned events = ButtonPressMask | ButtonReleaseMask | PointerMotionMask;
    XGrabPointer(x_display(), xid, True, events, GrabModeAsync, GrabModeAsync, None, None, fl_event_time);
    XGrabKeyboard(x_display(), xid, True, GrabModeAsync, GrabModeAsync, fl_event_time);
}

}  // namespace

int next_window_id() {
    static int last = 0;
    return ++last;
}

void open_popup(Menu &menu, Frame *owner, Point at, PopupOptions options) {
    close_popups();
    if (menu.items().empty()) return;
    x_display();
    session.owner = owner;
    session.opened = pointer();
    session.live = false;
    PopupWindow &window = push_level(menu, options.min_width, at);
    const Size size{window.w(), window.h()};
    const Box area = work_area(at);
    const bool above = options.below && at.y + size.h > area.y + area.h;
    const Point wanted = above ? Point{at.x, at.y - size.h - px(24)} : at;
    window.mark(options.marked);
    show_level(window, kept_on_screen(wanted, size));
    grab_input(window);
    Fl::pushed(nullptr);
}

bool popup_shown() {
    return !session.levels.empty();
}

void close_popups() {
    if (session.levels.empty()) return;
    Fl::remove_timeout(scroll_again);
    XUngrabPointer(x_display(), CurrentTime);
    XUngrabKeyboard(x_display(), CurrentTime);
    while (!session.levels.empty()) session.levels.pop_back();
    session.owner = nullptr;
}

void close_popups_of(const Menu &menu) {
    if (popup_shown() && &session.levels.front()->menu() == &menu) close_popups();
}

void popup_event(int event) {
    switch (event) {
        case FL_MOVE:
        case FL_DRAG:
            return follow_pointer(pointer());
        case FL_PUSH:
            return press(pointer());
        case FL_RELEASE:
            return release(pointer());
        case FL_MOUSEWHEEL:
            return scroll_at(pointer(), Fl::event_dy() * WHEEL_ENTRIES);
        case FL_KEYBOARD:
            return key();
        default:
            return;
    }
}

std::vector<PopupInfo> shown_popups() {
    std::vector<PopupInfo> shown;
    int owner = session.owner ? session.owner->impl().id : 0;
    for (const auto &window : session.levels) {
        PopupInfo info{window->id,           owner, window->menu().title(), window->screen_box(),
                       fl_xid(window.get()), {}};
        for (int n = 0; n < window->entries(); ++n) {
            if (!window->in_view(n)) continue;
            const auto index = static_cast<std::size_t>(n);
            info.entries.push_back({window->menu().items()[index].get(), window->entry_box(n)});
        }
        shown.push_back(std::move(info));
        owner = window->id;
    }
    return shown;
}

}  // namespace brindle::tk
