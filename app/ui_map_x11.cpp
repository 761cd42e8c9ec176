#include "app/ui_map_x11.hpp"

#include <QtGui/qguiapplication_platform.h>
#include <xcb/xcb.h>
#include <QApplication>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace brindle {
namespace {

constexpr const char *sync = "BRINDLE_UI_SYNC";
constexpr const char *sync_window = "BRINDLE_UI_SYNC_WINDOW";

struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, Free>;

Reply<xcb_query_tree_reply_t> tree_of(xcb_connection_t *server, xcb_window_t window) {
    return Reply<xcb_query_tree_reply_t>(
        xcb_query_tree_reply(server, xcb_query_tree(server, window), nullptr));
}

}  // namespace

MapSync::MapSync(std::function<void()> asked) : asked_(std::move(asked)) {
    const auto *application = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!application) return;
    server_ = application->connection();
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(server_)).data;
    root_ = screen->root;
    question_ = atom(sync);
    const xcb_window_t window = xcb_generate_id(server_);  // never shown
    xcb_create_window(server_, 0, window, root_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      screen->root_visual, 0, nullptr);
    set_root_property(sync_window, XCB_ATOM_WINDOW, window);
    qApp->installNativeEventFilter(this);
}

MapSync::~MapSync() = default;  // the application forgets its filters itself

std::uint32_t MapSync::atom(const char *name) const {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(server_, xcb_intern_atom(server_, 0, length, name), nullptr));
    return reply ? reply->atom : 0;
}

void MapSync::set_root_property(const char *name, std::uint32_t type, std::uint32_t value) const {
    xcb_change_property(server_, XCB_PROP_MODE_REPLACE, root_, atom(name), type, 32, 1, &value);
    xcb_flush(server_);
}

void MapSync::answer() {
    if (const std::uint32_t number = std::exchange(number_, 0))
        set_root_property(sync, XCB_ATOM_CARDINAL, number);
}

// The window manager has put it into a window of its own, or into several.
int MapSync::place_of(WId window) const {
    if (!server_) return -1;
    auto outermost = static_cast<xcb_window_t>(window);
    while (true) {
        const auto tree = tree_of(server_, outermost);
        if (!tree) return -1;
        if (tree->parent == root_ || tree->parent == XCB_NONE) break;
        outermost = tree->parent;
    }
    const auto all = tree_of(server_, root_);
    if (!all) return -1;
    const xcb_window_t *children = xcb_query_tree_children(all.get());
    for (int n = 0; n < xcb_query_tree_children_length(all.get()); ++n)
        if (children[n] == outermost) return n;
    return -1;
}

bool MapSync::nativeEventFilter(const QByteArray &type, void *message, qintptr *) {
    if (type != "xcb_generic_event_t") return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) return false;
    const auto *client = static_cast<const xcb_client_message_event_t *>(message);
    if (client->type != question_) return false;
    number_ = client->data.data32[0];
    asked_();
    return true;
}

}  // namespace brindle
