#include "windows/settings.hpp"

#include <algorithm>

namespace brindle {
namespace {

QString file_name() {
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(folder)) folder = QDir::homePath() + "/.local/state";
    return folder + "/brindle/windows.ini";
}

QSettings &store() {
    static QSettings settings(file_name(), QSettings::IniFormat);
    return settings;
}

}  // namespace

// The screen has to hold the window's title, too.
QSize Settings::window_size(const char *kind, QSize otherwise) const {
    const QSize screen = QGuiApplication::primaryScreen()->availableSize() - QSize(0, 30);
    const QSize size = store().value(QString("size/") + kind, otherwise).toSize();
    return size.isValid() ? size.boundedTo(screen) : otherwise.boundedTo(screen);
}

void Settings::remember_size(const char *kind, const QWidget &window) {
    if (!window.isMaximized()) store().setValue(QString("size/") + kind, window.size());
}

QString Settings::text(const char *name, const QString &otherwise) const {
    return store().value(name, otherwise).toString();
}
int Settings::number(const char *name, int otherwise) const {
    return store().value(name, otherwise).toInt();
}
double Settings::real(const char *name, double otherwise) const {
    return store().value(name, otherwise).toDouble();
}
void Settings::remember(const char *name, const QString &value) {
    store().setValue(name, value);
}
void Settings::remember(const char *name, int value) {
    store().setValue(name, value);
}
void Settings::remember(const char *name, double value) {
    store().setValue(name, value);
}

}  // namespace brindle
