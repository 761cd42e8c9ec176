#include "drawing/tree_picture.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

namespace brindle {
namespace {

// What lies between the start of a highlighted text and that of its rectangle, and below the rectangle's
// text.
constexpr int highlight_margin = 3;
constexpr int highlight_depth = 5;
// A text whose capitals are lower than this many pixels of the device cannot be read.
constexpr double least_text = 4;
// What a line width of 0 stands for, and the least that a branch has in pixels of the device.
constexpr double thinnest_line = 0.5;
constexpr double least_line = 0.6;

// Pixels of the device to one of the picture.
double device_scale(const QPainter &painter) {
    return std::sqrt(std::abs(painter.deviceTransform().determinant()));
}

// The nodes of a part, painted layer upon layer: all branches, all highlights, then the texts of each kind.
class PartPainter {
  public:
    PartPainter(QPainter &painter, const TreeColours &colours, const LayoutParams &params,
                TextHeights heights)
        : painter_(painter), colours_(colours), params_(params), heights_(heights) {}

    void add(const TreeLayout &layout, const PlacedNode &placed) {
        nodes_.push_back(&placed);
        // An upright branch one pixel wide covers one column of pixels, not two halves.
        const double x = placed.x + 0.5;
        const int y = get_node_y(placed, params_);
        if (placed.mother >= 0) {
            const PlacedNode &mother = layout.nodes[static_cast<std::size_t>(placed.mother)];
            branches_.emplace_back(mother.x + 0.5, branch_start(mother), x, y - heights_.above);
        }
        if (placed.node->lex())
            branches_.emplace_back(x, branch_start(placed), x, y + params_.vdist - heights_.above);
    }
    void paint_branches();
    void paint_highlights();
    void paint_texts(LabelTexts &texts, TextKind kind);

  private:
    double baseline(const PlacedNode &placed, TextKind kind) const {
        const int y = get_node_y(placed, params_);
        if (kind == TextKind::tag) return y + heights_.above + params_.text_gap;
        return kind == TextKind::word ? y + params_.vdist : y;
    }
    // Where the branches below a node begin: under what hangs from its last line.
    double branch_start(const PlacedNode &placed) const {
        const auto last = placed.node->sem() ? TextKind::tag : TextKind::category;
        return baseline(placed, last) + heights_.below + params_.text_gap;
    }
    void highlight(double left, double centre, double top, double height) {
        painter_.fillRect(QRectF(left, top, 2 * (centre - left) + 1, height), colours_.selected_ground);
    }

    QPainter &painter_;
    const TreeColours &colours_;
    const LayoutParams &params_;
    TextHeights heights_;
    std::vector<const PlacedNode *> nodes_;
    std::vector<QLineF> branches_;
};

void PartPainter::paint_branches() {
    const double width = std::max<double>(params_.line_width, thinnest_line);
    const double device_width = width * device_scale(painter_);
    QPen pen(colours_.branch, width);
    pen.setCapStyle(Qt::FlatCap);
    if (device_width < 1) {  // of a pixel: paler, but never gone
        pen.setCosmetic(true);
        pen.setWidthF(std::max(device_width, least_line));
    }
    painter_.setPen(pen);
    painter_.drawLines(branches_.data(), static_cast<int>(branches_.size()));
}

void PartPainter::paint_highlights() {
    const int line = heights_.above + highlight_depth;
    for (const PlacedNode *placed : nodes_) {
        const Node *node = placed->node;
        if (!node->selected()) continue;
        const int left = node->sem() ? std::min(placed->syn_x, placed->sem_x) : placed->syn_x;
        const double top = get_node_y(*placed, params_) - heights_.above;
        const int height = node->sem() ? line + heights_.above + params_.text_gap : line;
        highlight(left - highlight_margin, placed->x, top, height);
        if (node->lex()) highlight(placed->lex_x - highlight_margin, placed->x, top + params_.vdist, line);
    }
}

void PartPainter::paint_texts(LabelTexts &texts, TextKind kind) {
    const QColor colours[] = {colours_.category, colours_.tag, colours_.word};
    const QColor &usual = colours[static_cast<int>(kind)];
    painter_.setFont(texts.font(kind));
    painter_.setPen(usual);
    for (const PlacedNode *placed : nodes_) {
        const Label *label = label_of(placed->node, kind);
        if (!label) continue;
        const LabelText &text = texts.text(label, kind);
        const QPointF at(placed->x - text.width / 2, baseline(*placed, kind));
        if (placed->node->selected()) painter_.setPen(colours_.selected_text);
        text.draw(painter_, at);
        if (placed->node->selected()) painter_.setPen(usual);
    }
}

}  // namespace

TreePicture::TreePicture(const TreeFonts &fonts) : measure_(widest_measure(fonts)), texts_(fonts) {}

void TreePicture::set_fonts(const TreeFonts &fonts) {
    forget();
    texts_ = LabelTexts(fonts);
    measure_.set_measure(widest_measure(fonts));
}

void TreePicture::lay_out(Node *root, const LayoutParams &params, bool show_punctuation) {
    params_ = params;
    layout_.reset();
    if (root) layout_ = brindle::lay_out(root, params_, measure_, show_punctuation);
}

QSizeF TreePicture::size() const {
    if (!layout_) return {0, 0};
    return QSizeF(layout_->width + top_baseline, text_height() + layout_->height + top_baseline);
}

QPointF TreePicture::place_of(const Node *node) const {
    const PlacedNode *placed = layout_ ? layout_->find(node) : nullptr;
    if (!placed) return QPointF(0, top_baseline + depth_of(node) * params_.vdist);
    return QPointF(placed->x, get_node_y(*placed, params_));
}

QRectF TreePicture::category_box(const Node *node) const {
    const PlacedNode *placed = layout_ ? layout_->find(node) : nullptr;
    if (!placed) return {};
    const double width = texts_.text(node->syn(), TextKind::category).width;
    const TextHeights heights = texts_.heights();
    return QRectF(placed->x - width / 2, get_node_y(*placed, params_) - heights.above, width,
                  heights.above + heights.below);
}

QRectF TreePicture::node_box(const Node *node) const {
    QRectF box = category_box(node);
    if (box.isNull() || !node->sem()) return box;
    const double width = texts_.text(node->sem(), TextKind::tag).width;
    const double wider = std::max(0.0, width - box.width()) / 2;
    return box.adjusted(-wider, 0, wider, text_height() + params_.text_gap);
}

Hit TreePicture::hit(QPointF at) const {
    if (!layout_) return {};
    const auto whole = [](double d) { return static_cast<int>(std::floor(d)); };
    return find(*layout_, whole(at.x()), whole(at.y()), text_height(), params_);
}

void TreePicture::paint(QPainter &painter, const QRectF &part, const TreeColours &colours,
                        bool skip_tiny) const {
    if (!layout_) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    PartPainter nodes(painter, colours, params_, texts_.heights());
    for_each_in(part, [&](const PlacedNode &placed) { nodes.add(*layout_, placed); });
    nodes.paint_branches();
    nodes.paint_highlights();
    const double capitals = texts_.heights().capitals * device_scale(painter);
    if (!skip_tiny || capitals >= least_text)
        for (const TextKind kind : {TextKind::category, TextKind::tag, TextKind::word})
            nodes.paint_texts(texts_, kind);
    painter.restore();
}

}  // namespace brindle
