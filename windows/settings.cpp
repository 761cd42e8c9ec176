#include "windows/settings.hpp"

namespace brindle {
namespace {

QString file_name() {
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(folder)) folder = QDir::homePath() + "/.local/state";
    return folder + "/brindle/windows.ini";
}

}  // namespace

Settings::Settings() : QSettings(file_name(), QSettings::IniFormat) {}

QSize Settings::window_size(const QString &kind, QSize otherwise) const {
    const QSize screen = QGuiApplication::primaryScreen()->availableSize() - QSize(0, 30);  // for its title
    const QSize size = value("size/" + kind).toSize();
    return (size.isValid() ? size : otherwise).boundedTo(screen);
}

void Settings::remember_size(const QString &kind, const QWidget &window) {
    if (!window.isMaximized()) setValue("size/" + kind, window.size());
}

}  // namespace brindle
