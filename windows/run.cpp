#include "windows/run.hpp"

#include <algorithm>
#include <chrono>
#include <utility>

namespace brindle {
namespace {

constexpr const char *busy_property = "busy";

// The window that an event for the object is meant for.
const QWidget *window_of(const QObject *object) {
    for (; object; object = object->parent())
        if (object->isWidgetType()) return static_cast<const QWidget *>(object)->window();
    return nullptr;
}

bool is_input(QEvent::Type type) {
    using enum QEvent::Type;
    static constexpr QEvent::Type input[] = {
        MouseButtonPress, MouseButtonRelease, MouseButtonDblClick, MouseMove, Wheel,       KeyPress,
        KeyRelease,       Shortcut,           ContextMenu,         Close,     InputMethod,
    };
    return std::ranges::find(input, type) != std::end(input);
}

bool is_interrupt(const QEvent &event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    return key.key() == Qt::Key_C && key.modifiers() == Qt::ControlModifier;
}

}  // namespace

void set_busy(QWidget &window, bool busy) {
    window.setProperty(busy_property, busy);
    if (busy)
        window.setCursor(Qt::BusyCursor);
    else
        window.unsetCursor();
}

bool is_busy(const QWidget &window) {
    return window.property(busy_property).toBool();
}

CurrentRun::CurrentRun() {
    qApp->installEventFilter(this);
}

int CurrentRun::begin(TreeWindow &window, std::function<void()> stop) {
    window_ = &window;
    stop_ = std::move(stop);
    return ++number_;
}

void CurrentRun::end() {
    window_ = nullptr;
    if (const auto stop = std::exchange(stop_, nullptr)) stop();
}

// A run may ask between any two of a million trees; a person notices nothing below some milliseconds. The
// windows get at most a fifth of the run's time, as long as they are not kept waiting for more than 50 ms.
void CurrentRun::dispatch() {
    using namespace std::chrono;
    static steady_clock::time_point next_dispatch;
    const auto start = steady_clock::now();
    if (start < next_dispatch) return;
    QCoreApplication::processEvents();
    if (on_dispatched) on_dispatched();
    const auto end = steady_clock::now();
    next_dispatch =
        end + std::clamp<steady_clock::duration>(4 * (end - start), milliseconds(5), milliseconds(50));
}

bool CurrentRun::eventFilter(QObject *object, QEvent *event) {
    if (!is_input(event->type())) return false;
    const QWidget *window = window_of(object);
    if (!window || !is_busy(*window)) return false;
    if (event->type() == QEvent::Close) event->ignore();
    if (is_interrupt(*event) && object->isWidgetType() && on_interrupt) on_interrupt();
    return true;
}

}  // namespace brindle
