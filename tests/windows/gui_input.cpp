// What a person does in the windows: clicks, menus, typing.
#include "windows/gui.hpp"

#include <X11/Xlib.h>

namespace brindle::windows {

namespace {

// A place in a frame's footer, left of what changes the frame's size.
Area footer_of(const ShownFrame &frame) {
    return {frame.area.x + frame.area.w - 30, frame.area.y + frame.area.h - 6, 1, 1};
}

}  // namespace

void Gui::click_at(int x, int y, unsigned button, const std::string &modifier) {
    server_.move_pointer(x, y);
    const bool held = !modifier.empty();
    const KeySym symbol = modifier == "ctrl" ? XStringToKeysym("Control_L") : XStringToKeysym("Shift_L");
    if (held) server_.hold(symbol, true);
    server_.button(button, true);
    server_.button(button, false);
    if (held) server_.hold(symbol, false);
    sync();
}

void Gui::click_in(int frame, Area area, unsigned button, const std::string &modifier) {
    const std::string handle = "#" + std::to_string(frame);
    const auto hidden = [&](int x, int y) {
        const ShownFrame *seen = map_.frame_at(x, y);
        return seen && seen->id != frame;
    };
    const int x = area.middle_x();
    const int y = area.middle_y();
    const ShownFrame *meant = map_.frame(handle);
    if (hidden(x, y) && meant && !hidden(footer_of(*meant).x, footer_of(*meant).y)) {
        raise(handle);
        map();
    }
    if (hidden(x, y)) fail("frame " + handle + " is hidden where a click is meant for it");
    click_at(x, y, button, modifier);
}

void Gui::raise(const std::string &title) {
    const Area footer = footer_of(wait_frame(title));
    click_at(footer.x, footer.y);
}

void Gui::drag(int from_x, int from_y, int to_x, int to_y, unsigned button) {
    server_.move_pointer(from_x, from_y);
    server_.button(button, true);
    server_.move_pointer((from_x + to_x) / 2, (from_y + to_y) / 2);
    server_.move_pointer(to_x, to_y);
    server_.button(button, false);
    sync();
}

void Gui::press(const std::string &label, const std::string &title) {
    click(wait_item("button", label, title));
}

void Gui::click_item(const std::string &kind, const std::string &label, const std::string &title) {
    click(wait_item(kind, label, title));
}

void Gui::click_start(const ShownItem &item) {
    click_in(item.frame, {item.area.x, item.area.y, 20, item.area.h}, 1, {});
}

void Gui::click_row(const std::string &text, const std::string &title) {
    const auto there = [&](const UiMap &map) { return map.row(text, title) != nullptr; };
    click(*wait_until("row \"" + text + "\"", there).row(text, title));
}

void Gui::double_click_row(const std::string &text, const std::string &title) {
    click_row(text, title);
    server_.button(1, true);
    server_.button(1, false);
    sync();
}

void Gui::click_node(const std::string &path, unsigned button, const std::string &modifier,
                     const std::string &title) {
    const auto there = [&](const UiMap &map) { return map.node(path, title) != nullptr; };
    click(*wait_until("node " + path, there).node(path, title), button, modifier);
}

void Gui::choose(const std::vector<std::string> &entries) {
    if (entries.empty()) return;
    for (const std::string &entry : entries) {
        const Area area = wait_item("menuentry", entry, {}).area;
        server_.move_pointer(area.middle_x(), area.middle_y());
        sync();
    }
    server_.button(1, true);
    server_.button(1, false);
    sync();
}

void Gui::choose_option(const std::string &choice, const std::string &option, const std::string &title) {
    click_item("choice", choice, title);
    choose({option});
}

void Gui::fill(const std::string &label, const std::string &text, const std::string &title) {
    const auto there = [&](const UiMap &map) {
        return map.item("textfield", label, title) || map.item("numeric", label, title);
    };
    const UiMap &shown = wait_until("field \"" + label + "\"", there);
    const ShownItem *field = shown.item("textfield", label, title);
    click(field ? *field : *shown.item("numeric", label, title));
    key("ctrl+a");
    if (text.empty()) key("BackSpace");
    type(text);
}

void Gui::type(const std::string &utf8) {
    if (server_.prepare(utf8)) sync();
    server_.type(utf8);
    sync();
}

void Gui::key(const std::string &name) {
    server_.key(name);
    sync();
}

void Gui::at_once(const std::function<void(XServer &)> &events) {
    program_->halt(true);
    events(server_);
    program_->halt(false);
    sync();
}

}  // namespace brindle::windows
