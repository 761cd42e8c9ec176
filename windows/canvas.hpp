#pragma once
// The canvas of a tree window: a tree in a view that scrolls and zooms. It knows nothing of commands: what
// presses and keys do is told to it by the window.
#include <QAbstractScrollArea>

#include <functional>

#include "drawing/tree_picture.hpp"

namespace brindle {

class Canvas final : public QAbstractScrollArea {
    Q_OBJECT
  public:
    explicit Canvas(QWidget *parent);

    // What is shown is asked for whenever the canvas needs it: the root (null: none), the sizes, whether
    // punctuation is shown.
    struct Shown {
        Node *root = nullptr;
        LayoutParams params;
        bool show_punctuation = false;
    };
    std::function<Shown()> on_need;
    // A mouse button on the canvas and what lies there; `at` is in pixels of the picture.
    std::function<void(const QMouseEvent &event, const Hit &hit)> on_press;
    // A key that the canvas does not use itself; true: it has been dealt with.
    std::function<bool(QKeyEvent &event)> on_key;
    // The tree has been laid out anew.
    std::function<void()> on_laid_out;

    // The tree or its sizes have changed: lays out and paints when the loop is next idle.
    void refresh();
    // Lays out now, unless what is laid out is good.
    void lay_out_now();
    // Nothing is shown, until refresh; or a text instead of a tree ("": none).
    void clear();
    void set_message(const QString &text) { message_ = text; }
    void set_fonts(const TreeFonts &fonts);
    void set_colours(const TreeColours &colours);
    const TreePicture &picture() const { return picture_; }

    // Scrolling, in pixels of the view.
    void scroll_to_start();
    void scroll_by(int dx, int dy);
    // Brings a node into view: scrolls only if its place is outside, then to the middle.
    void make_visible(const Node *node);
    // Where a node stands, or a box of it, on the screen.
    QPoint screen_place_of(const Node *node);
    QRect view_box_of(const QRectF &picture_box) const;  // in the viewport

    // Zoom: 1 is the layout's size. Kept between 1/50 and 8.
    double zoom() const { return zoom_; }
    void set_zoom(double zoom, QPointF around);  // `around`, in the viewport, stays where it is
    void set_zoom(double zoom);                  // around the middle
    void fit();                                  // the whole tree; at most zoom 1
    std::function<void(double)> on_zoom;

  protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;

  private:
    QPointF origin() const;  // the picture's place at the viewport's upper left corner
    void adjust_bars();

    TreePicture picture_;
    TreeColours colours_;
    QString message_;
    double zoom_ = 1;
    bool cleared_ = false;
    bool own_colours_ = false;
    QPoint pan_from_;
    bool panning_ = false;
};

}  // namespace brindle
