// With BRINDLE_UI_MAP=FILE the file is rewritten whole whenever what is on the screen has changed and the
// event loop has nothing else to do. Its lines are described in docs/map.md.
//
// Whoever wants to know when the program has dealt with all events so far sends the client message
// BRINDLE_UI_SYNC, with a number, to the window that the root window's property BRINDLE_UI_SYNC_WINDOW names.
// The root window's property BRINDLE_UI_SYNC is that number when the map is up to date.
#include "app/ui_map.hpp"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QBasicTimer>
#include <QFile>
#include <QWindow>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <tuple>
#include <vector>

#include "app/ui_map_items.hpp"
#include "app/ui_map_x11.hpp"

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
    using Order = std::tuple<bool, int, int>;  // menus above all; then the server's order
    std::vector<std::pair<Order, QWidget *>> shown;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (!is_on_screen(*window)) continue;
        const int known = server.place_of(window->internalWinId());
        const int place = known < 0 && window->isActiveWindow() ? 0 : known;
        shown.push_back({{is_popup(*window), place, map_id(*window)}, window});
    }
    std::ranges::sort(shown);
    std::vector<QWidget *> windows;
    for (const auto &[order, window] : shown) windows.push_back(window);
    return windows;
}

class ScreenMap final : public QObject {
  public:
    explicit ScreenMap(const QString &file) : QObject(qApp), file_(file) {
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                &ScreenMap::update);
    }

    void update() {
        MapText map;
        for (QWidget *window : shown_windows(server_)) write_window(map, *window);
        if (map.text() == last_ && serial_ > 0) return;
        last_ = map.text();
        write("serial\t" + QByteArray::number(++serial_) + '\n' + last_.toUtf8());
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
    // Readers see the old file or the new one, never a piece.
    void write(const QByteArray &text) {
        QFile draft(file_ + ".new");
        if (!draft.open(QIODevice::WriteOnly) || draft.write(text) != text.size()) return;
        draft.close();
        std::rename(QFile::encodeName(draft.fileName()).constData(), QFile::encodeName(file_).constData());
    }
    // Events may be waiting that came before the question, and lead to others and to timers that end at once:
    // some turns of the loop later all of it is done.
    void asked() {
        const bool waiting = turns_ > 0;
        turns_ = 3;
        if (!waiting) post();
    }
    // Behind all others.
    void post() { QCoreApplication::postEvent(this, new QEvent(QEvent::User), INT_MIN); }

    const QString file_;
    MapSync server_{[this] { asked(); }};
    QBasicTimer timer_;
    int turns_ = 0;
    QString last_;
    int serial_ = 0;
};

}  // namespace

std::function<void()> start_ui_map() {
    const QString file = qEnvironmentVariable("BRINDLE_UI_MAP");
    if (file.isEmpty()) return {};
    return [map = new ScreenMap(file)] { map->update(); };
}

}  // namespace brindle
