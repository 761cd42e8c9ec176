// The screen map, for tests and scripts. With BRINDLE_UI_MAP=FILE the file is rewritten whole whenever what
// is on the screen has changed and the event loop has nothing else to do. Tab-separated lines, screen pixels:
// clang-format off
//   serial  N                                                        rises by 1 at each rewrite
//   frame   id  owner's id  title  footer  busy|idle  x  y  w  h     shown windows, notices, menus; topmost last
//   text    frame's id  text                                         lines of notices and text windows in view
//   item    frame's id  kind  label  value  active|inactive  x  y  w  h
//   row     frame's id  list's label  text  selected|-  x  y  w  h   rows in view
//   node    frame's id  PATH  category  tag  word  selected|-  x  y  w  h    visible nodes: the category's box
// clang-format on
// `kind` is button, textfield, numeric, slider, choice, checkbox, list, message, menuentry, scrollbar, canvas
// or textwindow. Newlines and tabs inside a text are written \n and \t. Without the variable nothing of this
// runs.
//
// Whoever wants to know when the program has dealt with all events so far sends the client message
// BRINDLE_UI_SYNC, with a number, to the window that the root window's property BRINDLE_UI_SYNC_WINDOW names.
// The root window's property BRINDLE_UI_SYNC is that number when the map is up to date.
#include "windows/ui_map.hpp"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <tuple>
#include <vector>

#include "windows/ui_map_items.hpp"
#include "windows/ui_map_x11.hpp"

namespace brindle {
namespace {

bool is_popup(const QWidget &window) {
    return window.windowType() == Qt::Popup;
}

// A menu takes the pointer as soon as it is shown, before the server has told that it is.
bool is_on_screen(const QWidget &window) {
    if (!window.isVisible() || !window.windowHandle() || window.windowType() == Qt::ToolTip) return false;
    return is_popup(window) || (window.windowHandle()->isExposed() && !window.isMinimized());
}

// The windows on the screen, topmost last.
std::vector<QWidget *> shown_windows(const MapSync &server) {
    struct Shown {
        bool popup;
        int place;
        int id;
        QWidget *window;
    };
    std::vector<Shown> shown;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (!is_on_screen(*window)) continue;
        const int known = server.place_of(window->internalWinId());
        const int place = known < 0 && window->isActiveWindow() ? 0 : known;
        shown.push_back({is_popup(*window), place, map_id(*window), window});
    }
    std::ranges::sort(shown, {}, [](const Shown &s) { return std::tuple(s.popup, s.place, s.id); });
    std::vector<QWidget *> windows;
    for (const Shown &s : shown) windows.push_back(s.window);
    return windows;
}

void write_window(MapText &map, QWidget &window) {
    const auto *menu = qobject_cast<QMenu *>(&window);
    QWidget *owner = window.parentWidget() ? window.parentWidget()->window() : nullptr;
    map.start("frame").field(map_id(window)).field(owner ? map_id(*owner) : 0);
    map.field(menu ? without_mnemonic(menu->title()) : window.windowTitle());
    map.field(window.property("footer").toString());
    map.field(window.property("busy").toBool() ? "busy" : "idle");
    map.end(box_on_screen(window, window.rect()));
    write_items(map, window);
}

// Readers see the old file or the new one, never a piece.
void write_whole(const QByteArray &path, const QByteArray &text) {
    const QByteArray draft = path + ".new";
    std::FILE *file = std::fopen(draft.constData(), "w");
    if (!file) return;
    const auto size = static_cast<std::size_t>(text.size());
    const bool written = std::fwrite(text.constData(), 1, size, file) == size;
    const bool closed = std::fclose(file) == 0;
    if (written && closed) std::rename(draft.constData(), path.constData());
}

class ScreenMap final : public QObject {
  public:
    explicit ScreenMap(QByteArray path) : path_(std::move(path)) {
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                &ScreenMap::update);
    }

    void update() {
        MapText map;
        for (QWidget *window : shown_windows(server_)) write_window(map, *window);
        if (map.text() == last_ && serial_ > 0) return;
        last_ = map.text();
        write_whole(path_, "serial\t" + QByteArray::number(++serial_) + '\n' + last_.toUtf8());
    }

  protected:
    void customEvent(QEvent *) override { timer_.start(0, this); }
    void timerEvent(QTimerEvent *) override {
        timer_.stop();
        if (--turns_ > 0) return post();
        update();
        server_.answer();
    }

  private:
    // Events may be waiting that came before the question, and lead to others and to timers that end at once:
    // some turns of the loop later all of it is done.
    void asked() {
        const bool waiting = turns_ > 0;
        turns_ = 3;
        if (!waiting) post();
    }
    // Behind all others.
    void post() { QCoreApplication::postEvent(this, new QEvent(QEvent::User), INT_MIN); }

    const QByteArray path_;
    MapSync server_{[this] { asked(); }};
    QBasicTimer timer_;
    int turns_ = 0;
    QString last_;
    int serial_ = 0;
};

QPointer<ScreenMap> screen_map;

}  // namespace

void start_ui_map() {
    const QByteArray path = qgetenv("BRINDLE_UI_MAP");
    if (path.isEmpty() || screen_map) return;
    screen_map = new ScreenMap(path);
    screen_map->setParent(qApp);
}

void update_ui_map() {
    if (screen_map) screen_map->update();
}

}  // namespace brindle
