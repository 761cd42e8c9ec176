#pragma once
// What the screen map says of the widgets of a window.
#include <QRect>
#include <QString>

class QWidget;

namespace brindle {

// The map's lines, each made of start(), its fields and end().
class MapText {
  public:
    MapText &start(const char *kind);
    MapText &field(QString text);
    MapText &field(int number) { return field(QString::number(number)); }
    void end() { text_ += '\n'; }
    void end(const QRect &box);
    const QString &text() const { return text_; }

  private:
    QString text_;
};

// The number of a window, by which lines refer to it; the same as long as the window lives.
int map_id(QWidget &window);

// A part of the widget in pixels of the screen, whatever scale the program has.
QRect box_on_screen(const QWidget &widget, const QRect &part);

// A label without its mnemonic's mark.
QString without_mnemonic(const QString &label);

// Appends what is in view in the window: its items, rows, nodes and texts.
void write_items(MapText &map, QWidget &window);

}  // namespace brindle
