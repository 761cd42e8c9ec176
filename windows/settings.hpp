#pragma once
// What is remembered from one start to the next: sizes of windows, fonts, zoom, colours.
#include <QByteArray>
#include <QColor>
#include <QSize>
#include <QString>

class QWidget;

namespace brindle {

// Kept in the file brindle/windows.ini in the folder for state ($XDG_STATE_HOME, else ~/.local/state). What
// cannot be read or written there is forgotten without a word.
class Settings {
  public:
    // The size of a kind of window ("main", "tree"); without one that was remembered `otherwise`, at most the
    // screen.
    QSize window_size(const char *kind, QSize otherwise) const;
    void remember_size(const char *kind, const QWidget &window);

    // Texts and numbers by their names.
    QString text(const char *name, const QString &otherwise) const;
    int number(const char *name, int otherwise) const;
    double real(const char *name, double otherwise) const;
    void remember(const char *name, const QString &value);
    void remember(const char *name, int value);
    void remember(const char *name, double value);
};

}  // namespace brindle
