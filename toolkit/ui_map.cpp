// The screen map, for tests and scripts. With BRINDLE_UI_MAP=FILE the file is rewritten whole whenever what
// is on the screen has changed and nothing else is to be done. Tab-separated lines, screen pixels:
// clang-format off
//   serial  N                                                        rises by 1 at each rewrite
//   frame   id  owner's id  title  footer  busy|idle  x  y  w  h     shown frames, notices, menus; topmost last
//   text    frame's id  text                                         lines of notices and text windows in view
//   item    frame's id  kind  label  value  active|inactive  x  y  w  h
//   row     frame's id  list's label  text  selected|-  x  y  w  h   rows in view
//   node    frame's id  what the canvas's user says of it  x  y  w  h
// Newlines and tabs inside a text are written \n and \t. Without the variable nothing of this runs.
// clang-format on
#include "toolkit/ui_map.hpp"

#include <X11/Xatom.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/list_view.hpp"
#include "toolkit/menu.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/popup.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"
#include "toolkit/text_window_impl.hpp"
#include "toolkit/x11.hpp"

namespace brindle::tk {

namespace {

constexpr const char *SYNC = "BRINDLE_UI_SYNC";
constexpr const char *SYNC_WINDOW = "BRINDLE_UI_SYNC_WINDOW";

long sync_asked = 0;  // the number of the last message that is not answered; 0: none

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '\n') {
            out += "\\n";
        } else if (c == '\t') {
            out += "\\t";
        } else {
            out += c;
        }
    }
    return out;
}

// One line: its fields, and a box at its end.
class MapWriter {
  public:
    MapWriter &start(std::string_view kind) {
        out_ += kind;
        return *this;
    }
    MapWriter &field(std::string_view text) {
        out_ += '\t' + escaped(text);
        return *this;
    }
    MapWriter &field(int number) { return field(std::to_string(number)); }
    void end() { out_ += '\n'; }
    void end(Box box) { out_ += fmt::format("\t{}\t{}\t{}\t{}\n", box.x, box.y, box.w, box.h); }
    std::string take() { return std::move(out_); }

  private:
    std::string out_;
};

Box moved(Box box, Point by) {
    return {box.x + by.x, box.y + by.y, box.w, box.h};
}

void write_rows(MapWriter &map, const Frame::Impl &frame, const ListView &list) {
    const Point origin = frame.origin();
    for (const auto &[row, box] : list.shown_rows()) {
        const std::string &text = list.rows[static_cast<std::size_t>(row)].utf8;
        map.start("row").field(frame.id).field(list.label_utf8()).field(text);
        map.field(row == list.selected() ? "selected" : "-").end(moved(box, origin));
    }
}

void write_item(MapWriter &map, const Frame::Impl &frame, const Item &item) {
    const ItemView &view = item.view();
    const std::string_view kind = view.kind();
    if (frame.kind == FrameKind::notice && kind == "message") {
        map.start("text").field(frame.id).field(view.label_utf8()).end();
        return;
    }
    map.start("item").field(frame.id).field(kind).field(view.label_utf8()).field(view.value_utf8());
    map.field(item.inactive() ? "inactive" : "active").end(moved(view.map_box(), frame.origin()));
    if (const auto *list = dynamic_cast<const ListView *>(&view)) write_rows(map, frame, *list);
}

Box inside(Box box, Box limits) {
    const int left = std::max(box.x, limits.x);
    const int top = std::max(box.y, limits.y);
    return {left, top, std::min(box.x + box.w, limits.x + limits.w) - left,
            std::min(box.y + box.h, limits.y + limits.h) - top};
}

void write_bar(MapWriter &map, const Frame::Impl &frame, const ScrollWidget &bar) {
    map.start("item").field(frame.id).field("scrollbar").field(bar.horizontal() ? "horizontal" : "vertical");
    map.field(unscaled(bar.start())).field(bar.max_start() > 0 ? "active" : "inactive");
    map.end(moved({bar.x(), bar.y(), bar.w(), bar.h()}, frame.origin()));
}

void write_canvas(MapWriter &map, const Frame::Impl &frame, const Canvas::Impl &canvas) {
    const Box view = canvas.screen_box();
    map.start("item").field(frame.id).field("canvas").field("").field("").field("active").end(view);
    write_bar(map, frame, canvas.hbar);
    write_bar(map, frame, canvas.vbar);
    if (!canvas.map_lines) return;
    const Point start = canvas.view_start();
    for (const MapLine &line : canvas.map_lines()) {
        const Box box{px(line.box.x) - start.x + view.x, px(line.box.y) - start.y + view.y, px(line.box.w),
                      px(line.box.h)};
        const Box shown = inside(box, view);
        if (shown.w <= 0 || shown.h <= 0) continue;
        map.start(line.kind).field(frame.id);
        for (const std::string &text : line.fields) map.field(to_display(text));
        map.end(shown);
    }
}

void write_text(MapWriter &map, const Frame::Impl &frame, const TextWindow &text) {
    map.start("item").field(frame.id).field("textwindow").field("").field("");
    map.field(text.editable() ? "active" : "inactive").end(text.impl().screen_box());
    for (const std::string &line : text.impl().editor.lines_in_view()) {
        map.start("text").field(frame.id).field(line).end();
    }
}

void write_frame(MapWriter &map, const Frame::Impl &frame) {
    const Point at = frame.origin();
    map.start("frame").field(frame.id).field(frame.owner ? frame.owner->impl().id : 0);
    map.field(to_display(frame.title)).field(frame.footer).field(frame.busy ? "busy" : "idle");
    map.end({at.x, at.y, frame.window->w(), frame.window->h()});
    for (const auto &panel : frame.panels) {
        for (const auto &item : panel->items()) write_item(map, frame, *item);
    }
    if (frame.canvas) write_canvas(map, frame, frame.canvas->impl());
    if (frame.text) write_text(map, frame, *frame.text);
}

void write_popup(MapWriter &map, const PopupInfo &popup) {
    map.start("frame").field(popup.id).field(popup.owner).field(to_display(popup.title));
    map.field("").field("idle").end(popup.box);
    for (const auto &[item, box] : popup.entries) {
        map.start("item").field(popup.id).field("menuentry").field(to_display(item->label()));
        map.field(item->submenu() ? "submenu" : item->checked() ? "checked" : "");
        map.field(item->inactive() ? "inactive" : "active").end(box);
    }
}

// Top-level X windows, lowest first, with their places in that order.
std::map<Window, int> stacking_order() {
    Window root = None;
    Window parent = None;
    Window *children = nullptr;
    unsigned count = 0;
    std::map<Window, int> order;
    if (!XQueryTree(x_display(), DefaultRootWindow(x_display()), &root, &parent, &children, &count))
        return order;
    for (unsigned n = 0; n < count; ++n) order[children[n]] = static_cast<int>(n);
    if (children) XFree(children);
    return order;
}

std::string describe_screen() {
    std::vector<std::pair<int, const Frame::Impl *>> frames;
    const auto order = stacking_order();
    for (const Frame::Impl *frame : all_frames()) {
        if (!frame->mapped || !frame->window->shown() || frame->destroyed) continue;
        const auto place = order.find(top_level_of(fl_xid(frame->window.get())));
        frames.emplace_back(place == order.end() ? -1 : place->second, frame);
    }
    std::ranges::stable_sort(frames, {}, [](const auto &entry) { return entry.first; });
    MapWriter map;
    for (const auto &[place, frame] : frames) write_frame(map, *frame);
    for (const PopupInfo &popup : shown_popups()) write_popup(map, popup);
    return map.take();
}

// Readers see the old file or the new one, never a piece.
void write_whole(const std::string &path, const std::string &text) {
    const std::string draft = path + ".new";
    std::FILE *file = std::fopen(draft.c_str(), "w");
    if (!file) return;
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool closed = std::fclose(file) == 0;
    if (written && closed) std::rename(draft.c_str(), path.c_str());
}

void set_root_property(const char *name, Atom type, unsigned long value) {
    XChangeProperty(x_display(), DefaultRootWindow(x_display()), atom(name), type, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(&value), 1);
    XFlush(x_display());
}

// A window that is never shown, named in a property of the root window: where client messages can be sent to.
void offer_sync_window() {
    static Window window = None;
    if (window) return;
    window = XCreateSimpleWindow(x_display(), DefaultRootWindow(x_display()), 0, 0, 1, 1, 0, 0, 0);
    set_root_property(SYNC_WINDOW, XA_WINDOW, window);
}

void answer_sync() {
    if (!sync_asked) return;
    set_root_property(SYNC, XA_CARDINAL, static_cast<unsigned long>(sync_asked));
    sync_asked = 0;
}

}  // namespace

void update_ui_map() {
    static const char *path = std::getenv("BRINDLE_UI_MAP");
    if (!path || !*path) return;
    static std::string last;
    static int serial = 0;
    std::string now = describe_screen();
    if (now != last || serial == 0) {
        last = std::move(now);
        write_whole(path, fmt::format("serial\t{}\n{}", ++serial, last));
    }
    offer_sync_window();
    answer_sync();
}

int sync_ui_map(const XClientMessageEvent &message) {
    if (message.message_type != atom(SYNC)) return 0;
    sync_asked = message.data.l[0];
    return 1;
}

}  // namespace brindle::tk
