#pragma once
// One laid-out tree, painted on whatever Qt Gui can paint on: a window, SVG, PDF, PNG.
//
// All places are in pixels of the layout at zoom 1, from the picture's upper left corner.
#include <QPainter>
#include <QRectF>

#include <optional>

#include "display/hit_test.hpp"
#include "display/layout.hpp"
#include "drawing/colours.hpp"
#include "drawing/fonts.hpp"
#include "drawing/label_texts.hpp"

namespace brindle {

// Its trees are of one corpus, which outlives it.
class TreePicture {
  public:
    explicit TreePicture(const TreeFonts &fonts);

    // Other fonts: nothing is laid out any more.
    void set_fonts(const TreeFonts &fonts);

    // Lays the tree out with these sizes; null: there is none, the picture is empty. What is shown is good
    // until the tree changes.
    void lay_out(Node *root, const LayoutParams &params, bool show_punctuation);
    void forget() { layout_.reset(); }
    bool is_laid_out() const { return layout_.has_value(); }
    Node *root() const { return layout_ ? layout_->nodes.front().node : nullptr; }

    // Width and height with the margin right and below; (0, 0) of an empty picture.
    QSizeF size() const;
    // Where a node stands: the centre of its texts, the baseline of its category. A hidden node has its level
    // alone. REQUIRES: it is of the tree that is laid out.
    QPointF place_of(const Node *node) const;
    // The category's text of a shown node; the whole of its texts (category, tag). Empty: it is hidden.
    QRectF category_box(const Node *node) const;
    QRectF node_box(const Node *node) const;
    // What lies at a place.
    Hit hit(QPointF at) const;
    const TreeLayout *layout() const { return layout_ ? &*layout_ : nullptr; }
    // Calls f(const PlacedNode &) for every node of which something may be seen in the part.
    template <class F>
    void for_each_in(const QRectF &part, F &&f) const {
        const QRect whole = part.toAlignedRect();
        const Clip clip{whole.left(), whole.top(), whole.right(), whole.bottom()};
        if (layout_) layout_->for_each_in(clip, text_height(), params_, f);
    }

    // Paints the part of the picture. Texts of less than about two pixels of the device are left out where
    // `skip_tiny`; branches are always drawn.
    void paint(QPainter &painter, const QRectF &part, const TreeColours &colours, bool skip_tiny) const;

    const TreeFonts &fonts() const { return texts_.fonts(); }
    // Of a line of text above its baseline: what "H" and what is higher takes.
    int text_height() const { return texts_.heights().above; }

  private:
    LayoutParams params_;
    CachedMeasure measure_;
    mutable LabelTexts texts_;  // keeps what it has made
    std::optional<TreeLayout> layout_;
};

}  // namespace brindle
