// The keyboard inside a frame: who has it, Tab, Return, Escape.
#include <FL/Fl.H>

#include <algorithm>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/item_view.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"
#include "toolkit/text_window_impl.hpp"

namespace brindle::tk {

namespace {

struct KeyCode {
    int fltk;
    int code;
};

constexpr KeyCode KEY_CODES[] = {
    {FL_Enter, CODE_RETURN}, {FL_KP_Enter, CODE_RETURN},  {FL_Escape, CODE_ESCAPE},
    {FL_Tab, '\t'},          {FL_BackSpace, '\b'},        {FL_Delete, 127},
    {FL_Up, EVENT_UP},       {FL_Down, EVENT_DOWN},       {FL_Left, EVENT_LEFT},
    {FL_Right, EVENT_RIGHT}, {FL_Page_Up, EVENT_PAGE_UP}, {FL_Page_Down, EVENT_PAGE_DOWN},
    {FL_Home, EVENT_HOME},   {FL_End, EVENT_END},
};

bool takes_keys(const Fl_Widget *widget) {
    return widget && widget->active_r() && widget->visible_r();
}

}  // namespace

void decode_modifiers(Event &event) {
    const int state = Fl::event_state();
    event.control = (state & FL_CTRL) != 0;
    event.shift = (state & FL_SHIFT) != 0;
    event.meta = (state & (FL_ALT | FL_META)) != 0;
}

Event decode_key() {
    Event event;
    decode_modifiers(event);
    event.at = unscaled(Point{Fl::event_x(), Fl::event_y()});
    event.screen = unscaled(Point{Fl::event_x_root(), Fl::event_y_root()});
    const int key = Fl::event_key();
    const auto *known = std::ranges::find(KEY_CODES, key, &KeyCode::fltk);
    if (known != std::end(KEY_CODES)) {
        event.code = known->code;
    } else if (Fl::event_length() > 0) {
        std::string text = from_display({Fl::event_text(), static_cast<std::size_t>(Fl::event_length())});
        std::string_view rest = text;
        event.code = static_cast<int>(next_character(rest));
    }
    return event;
}

ItemView *Frame::Impl::view_of(const Fl_Widget *widget) const {
    for (; widget; widget = widget->parent()) {
        if (const auto *view = dynamic_cast<const ItemView *>(widget)) return const_cast<ItemView *>(view);
    }
    return nullptr;
}

std::vector<ItemView *> Frame::Impl::focus_items() {
    std::vector<ItemView *> found;
    for (const auto &panel : panels) {
        for (const auto &item : panel->items()) {
            if (takes_keys(item->view().focus_target())) found.push_back(&item->view());
        }
    }
    return found;
}

// The canvas, or the text window when it is for typing.
Fl_Widget *Frame::Impl::content_focus() {
    if (canvas) return canvas->impl().focus_target();
    return text && text->editable() ? text->impl().focus_target() : nullptr;
}

Fl_Widget *Frame::Impl::first_focus() {
    if (Fl_Widget *content = content_focus()) return content;
    const auto items = focus_items();
    const auto field = std::ranges::find_if(items, [](ItemView *view) { return view->is_field(); });
    if (field != items.end()) return (*field)->focus_target();
    if (text) return text->impl().focus_target();
    return items.empty() ? nullptr : items[0]->focus_target();
}

Fl_Widget *Frame::Impl::focus_widget() {
    Fl_Widget *current = Fl::focus();
    if (current && window->contains(current) && takes_keys(current)) return current;
    return takes_keys(last_focus) ? last_focus : first_focus();
}

// FLTK tells the widget that loses the keyboard, but not the one that gets it.
void Frame::Impl::move_keyboard_to(Fl_Widget *widget) {
    if (widget == Fl::focus()) return;
    Fl::focus(widget);
    if (ItemView *view = view_of(widget)) view->redraw();
}

// FLTK would fetch the keyboard to the window.
void Frame::Impl::focus_on(Fl_Widget *widget) {
    last_focus = widget;
    if (has_keyboard) move_keyboard_to(widget);
}

void Frame::Impl::give_focus(ItemView &view) {
    Fl_Widget *target = view.focus_target();
    if (!takes_keys(target)) return;
    focus_on(target);
    view.focused();
}

void Frame::Impl::offer_focus(ItemView &view) {
    Fl_Widget *current = last_focus;
    const bool idle = !takes_keys(current) || (text_has_focus(current) && !text->editable());
    if (idle && mapped && view.takes_text()) give_focus(view);
}

bool Frame::Impl::text_has_focus(const Fl_Widget *widget) const {
    return text && widget == text->impl().focus_target();
}

void Frame::Impl::move_focus(bool backwards) {
    const auto items = focus_items();
    if (items.empty()) return;
    const auto at = std::ranges::find(items, view_of(Fl::focus()));
    const auto count = items.size();
    const auto index = static_cast<std::size_t>(at - items.begin());
    const bool none = at == items.end();
    const std::size_t next = backwards ? (none ? count : index) + count - 1 : none ? 0 : index + 1;
    give_focus(*items[next % count]);
}

// A panel's user sees press and release of each key. The frame may be gone from the screen after the press.
bool Frame::Impl::background_key(Panel *panel, const Event &event) {
    if (!panel || !panel->impl().background || !panel->impl().keystrokes) return false;
    const auto callback = panel->impl().background;
    bool done = callback(*panel, event);
    if (!self.shown()) return true;
    Event release = event;
    release.negative = true;
    done = callback(*panel, release) || done;
    return done;
}

bool Frame::Impl::default_key(Panel *panel, const Event &event) {
    if (event.code == '\t') {
        move_focus(event.shift);
        return true;
    }
    if (!panel || (event.code != CODE_RETURN && event.code != CODE_ESCAPE)) return false;
    const bool enter = event.code == CODE_RETURN;
    Button *chosen = enter ? panel->impl().default_button : panel->impl().cancel_button;
    Button *button = chosen ? chosen : panel->impl().button_labelled(enter ? "Ok" : "Cancel");
    if (button) button->press();
    return button != nullptr;
}

void Frame::Impl::handle_key() {
    const Event event = decode_key();
    if (key_hook && key_hook(event)) return;
    Fl_Widget *widget = focus_widget();
    move_keyboard_to(widget);
    ItemView *view = view_of(widget);
    Panel *panel = view ? &view->item->panel() : panels.empty() ? nullptr : panels[0].get();
    const bool typing = (view && view->takes_text()) || text_has_focus(widget);
    const bool presses = event.code == CODE_RETURN && view && view->kind() == std::string_view("button");
    if (event.code && !typing && !presses && background_key(panel, event)) return;
    if (event.code && view && view->key(event)) return;
    const bool editing = text_has_focus(widget) && text->editable();
    if (!editing && default_key(panel, event)) return;
    if (widget && widget != view && !canvas_widget(widget) && widget->handle(FL_KEYBOARD)) return;
    if (canvas && event.code) canvas->impl().deliver_key(event);
}

// The keyboard comes to the window: whoever had it there last has it again, not simply the first child.
int TopWindow::handle(int event) {
    if (event != FL_FOCUS) return Fl_Double_Window::handle(event);
    if (Fl_Widget *widget = impl.focus_widget()) impl.move_keyboard_to(widget);
    return 1;
}

void Frame::Impl::commit_elsewhere() {
    ItemView *view = view_of(Fl::focus());
    if (view && !Fl::event_inside(view)) view->commit();
}

}  // namespace brindle::tk
