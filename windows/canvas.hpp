#pragma once
// The canvas of a tree window: a tree in a view that scrolls and zooms. It knows nothing of commands: what
// presses and keys do is told to it by the window.
#include <QAbstractScrollArea>

#include <functional>
#include <optional>

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
    // A key; true: it has been dealt with. Of others arrows and page keys scroll.
    std::function<bool(QKeyEvent &event)> on_key;
    // The tree has been laid out anew.
    std::function<void()> on_laid_out;

    // The tree or its sizes have changed: lays out and paints when the loop is next idle.
    void refresh();
    // What is laid out is not good any more; nothing is painted for that.
    void forget() { picture_.forget(); }
    // Lays out now, unless what is laid out is good.
    void lay_out_now();
    // Nothing is shown, until refresh; or a text instead of a tree ("": none).
    void clear();
    void set_message(const QString &text);
    void set_fonts(const TreeFonts &fonts);
    // Without colours of its own a canvas follows the palette.
    void set_colours(const std::optional<TreeColours> &own);
    TreeColours colours() const { return own_colours_ ? *own_colours_ : colours_for(palette()); }
    const TreePicture &picture() const { return picture_; }

    // Scrolling, in pixels of the view.
    void scroll_to_start() { scroll_to({0, 0}); }
    void scroll_by(int dx, int dy);
    // Brings a node into view: scrolls only if its place is outside, then to the middle.
    void make_visible(const Node *node);
    // Where a node stands on the screen; a box of it in the viewport; what lies at a place of the viewport.
    QPoint screen_place_of(const Node *node);
    QRect view_box_of(const QRectF &picture_box) const;
    QPointF picture_place(QPointF at) const { return origin() + at / zoom_; }

    // The node that keys act on, for those to whom the screen is read aloud; null: none.
    void set_focus_node(const Node *node);
    const Node *focus_node() const { return focus_node_; }

    // Zoom: 1 is the layout's size. Kept between 1/50, or less where the whole tree needs it, and 8.
    double zoom() const { return zoom_; }
    void set_zoom(double zoom, QPointF around);  // `around`, in the viewport, stays where it is
    void set_zoom(double zoom);                  // around the middle
    void fit();                                  // the whole tree; at most zoom 1

  protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override { mousePressEvent(event); }
    void scrollContentsBy(int dx, int dy) override;

  private:
    QPointF origin() const;  // the picture's place at the viewport's upper left corner
    QPointF view_place(QPointF place) const { return (place - origin()) * zoom_; }
    void scroll_to(QPoint start);
    double fitting_zoom() const;
    void adjust_bars();
    void take_zoom(double zoom);

    TreePicture picture_;
    std::optional<TreeColours> own_colours_;
    QString message_;
    double zoom_ = 1;
    const Node *focus_node_ = nullptr;
    bool cleared_ = false;
    bool layout_is_due_ = false;
    QPoint pan_from_;
    bool may_pan_ = false;  // the left button went down on empty canvas
    bool panning_ = false;
};

}  // namespace brindle
