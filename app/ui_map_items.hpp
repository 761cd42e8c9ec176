#pragma once
// What the screen map says of a window and its widgets.
#include <QRect>
#include <QString>

class QWidget;

namespace brindle {

// The map's lines: fields with tabs between them. Newlines and tabs in a field are written \n and \t.
class MapText {
  public:
    template <class... Fields>
    void add_line(const Fields &...fields) {
        (add(fields), ...);
        text_.back() = '\n';  // instead of the last tab
    }
    const QString &text() const { return text_; }

  private:
    void add(QString field);
    void add(int number) { add(QString::number(number)); }
    void add(const QRect &box);  // four fields

    QString text_;
};

// The number of a window, by which lines refer to it; the same as long as the window lives.
int map_id(QWidget &window);

// Appends the window's line; that, and what is in view in it: its items, rows, nodes and texts.
void write_window(MapText &map, QWidget &window);
void write_items(MapText &map, QWidget &window);

}  // namespace brindle
