#pragma once
// What is remembered from one start to the next: sizes of windows, fonts, zoom, colours.
#include <QSettings>
#include <QSize>

class QWidget;

namespace brindle {

// Kept in the file brindle/windows.ini in the folder for state ($XDG_STATE_HOME, else ~/.local/state). What
// cannot be read or written there is forgotten without a word.
class Settings final : public QSettings {
  public:
    Settings();

    // The size of a kind of window ("main", "tree"); without one that was remembered `otherwise`, at most the
    // screen.
    QSize window_size(const QString &kind, QSize otherwise) const;
    void remember_size(const QString &kind, const QWidget &window);
};

}  // namespace brindle
