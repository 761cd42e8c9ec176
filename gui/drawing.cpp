#include "gui/drawing.hpp"

#include <fmt/printf.h>

#include <algorithm>

#include "display/hit_test.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "model/path.hpp"

namespace brindle {

namespace {

constexpr const char *start_font = "lucidasans-bold";

// What lies between the start of a highlighted text and that of its rectangle.
constexpr int highlight_margin = 3;

Clip clip_of(const tk::Box &box) {
    return {box.x, box.y, box.x + box.w - 1, box.y + box.h - 1};
}

// Draws the nodes of one tree, each with the branch that leads to it, in the coordinates of the canvas.
class TreeDrawing {
  public:
    TreeDrawing(TreeWindow &tw, tk::Painter &painter)
        : tw_(tw), painter_(painter), h_(tw.font->height_of_h()) {}

    void draw(const PlacedNode &placed);

  private:
    // Where the branches below a node start.
    int branch_start(const Node *node, int y) const {
        return node->sem() ? y + h_ + 2 * tw_.text_gap : y + tw_.text_gap;
    }
    void draw_labels(const PlacedNode &placed, int y);
    void draw_word(const PlacedNode &placed, int y);

    TreeWindow &tw_;
    tk::Painter &painter_;
    int h_;
};

void TreeDrawing::draw(const PlacedNode &placed) {
    const int y = get_node_y(placed, tw_);
    draw_labels(placed, y);
    if (placed.node->lex()) draw_word(placed, y);
    if (placed.mother < 0) return;
    const PlacedNode &mother = tw_.layout->nodes[static_cast<std::size_t>(placed.mother)];
    painter_.line(tw_.gc, {mother.x, branch_start(mother.node, y - tw_.vdist)}, {placed.x, y - h_});
}

void TreeDrawing::draw_labels(const PlacedNode &placed, int y) {
    const Node *node = placed.node;
    if (node->selected()) {
        const int left =
            (node->sem() ? std::min(placed.syn_x, placed.sem_x) : placed.syn_x) - highlight_margin;
        const int height = node->sem() ? 2 * h_ + tw_.text_gap + 5 : h_ + 5;
        painter_.fill(tw_.gc, {left, y - h_, 2 * (placed.x - left) + 1, height});
    }
    const tk::GraphicsContext &gc = node->selected() ? tw_.inverse_gc : tw_.gc;
    painter_.text(gc, {placed.syn_x, y}, node->syn()->view());
    if (node->sem()) painter_.text(gc, {placed.sem_x, y + h_ + tw_.text_gap}, node->sem()->view());
}

void TreeDrawing::draw_word(const PlacedNode &placed, int y) {
    const Node *node = placed.node;
    const int ynext = y + tw_.vdist;
    if (node->selected())
        painter_.fill(tw_.gc, {placed.lex_x - highlight_margin, ynext - h_,
                               2 * (placed.x - placed.lex_x) + 2 * highlight_margin, h_ + 5});
    painter_.text(node->selected() ? tw_.inverse_gc : tw_.gc, {placed.lex_x, ynext}, node->lex()->view());
    painter_.line(tw_.gc, {placed.x, branch_start(node, y)}, {placed.x, ynext - h_});
}

// A scrollable length: the tree's with its margin, and at least what is in view.
int fitted(int tree, int visible) {
    return std::max(tree + top_baseline, visible);
}

void fit_canvas(TreeWindow &tw) {
    const tk::Size visible = tw.canvas->visible_size();
    const tk::Size needed{fitted(tw.layout->width, visible.w),
                          fitted(tw.font->height_of_h() + tw.layout->height, visible.h)};
    if (needed != tw.canvas->scrollable_size()) tw.canvas->set_scrollable_size(needed);
}

}  // namespace

void init_GC(TreeWindow &tw) {
    tw.font_name = start_font;
    const tk::TextWindow &output = output_window(*tw.main_frame);
    tw.gc.foreground = tw.inverse_gc.background = output.foreground();
    tw.gc.background = tw.inverse_gc.foreground = output.background();
    find_window_font(tw);
}

void find_window_font(TreeWindow &tw) {
    tw.font = tk::find_font(tw.font_name, tw.font_scale);
    if (!tw.font) {
        fmt::fprintf(stderr, "\nCannot use font: %s!\n", tw.font_name);
        tw.font = tk::default_font();
    }
    tw.gc.font = tw.inverse_gc.font = tw.font;
    tw.measure = std::make_unique<CachedMeasure>(
        [font = tw.font](std::string_view text) { return font->width(text); });
}

void lay_out_current_tree(TreeWindow &tw) {
    const Tree *tree = current_tree(tw);
    if (!tree) return;
    tw.layout = lay_out(tree->root, tw, *tw.measure, tw.show_punctuation);
    tw.check_box->set_value(tree->checked);
    fit_canvas(tw);
}

bool is_laid_out(const TreeWindow &tw) {
    const Tree *tree = current_tree(tw);
    return tree && tw.layout && tw.layout->nodes.front().node == tree->root;
}

tk::Point place_of(const Node *node, TreeWindow &tw) {
    check_active_GUI(tw);
    const PlacedNode *placed = tw.layout ? tw.layout->find(node) : nullptr;
    if (!placed) return {0, top_baseline + depth_of(node) * tw.vdist};
    return {placed->x, get_node_y(*placed, tw)};
}

Node *nodefind(TreeWindow &tw, tk::Point at) {
    if (!is_laid_out(tw)) return nullptr;
    const Hit hit = find(*tw.layout, at.x, at.y, tw.font->height_of_h(), tw);
    tw.info_mode = static_cast<int>(hit.mode);
    return hit.node;
}

void canvas_repaint_proc(TreeWindow &tw, tk::Painter &painter) {
    tw.gc.line_width = tw.line_width;
    painter.clear(tw.gc);
    if (!current_tree(tw)) {
        painter.text(tw.gc, {top_baseline, top_baseline}, "This corpus has no trees.");
        return;
    }
    check_active_GUI(tw);
    fit_canvas(tw);
    TreeDrawing drawing(tw, painter);
    tw.layout->for_each_in(clip_of(painter.visible()), tw.font->height_of_h(), tw,
                           [&](const PlacedNode &placed) { drawing.draw(placed); });
}

std::vector<tk::MapLine> node_lines(TreeWindow &tw) {
    std::vector<tk::MapLine> lines;
    if (!current_tree(tw)) return lines;
    check_active_GUI(tw);
    const tk::Size size = tw.canvas->visible_size();
    const tk::Box view{tw.hscrollbar->view_start(), tw.vscrollbar->view_start(), size.w, size.h};
    const int height = tw.font->height_of_h();
    tw.layout->for_each_in(clip_of(view), height, tw, [&](const PlacedNode &placed) {
        const Node *node = placed.node;
        lines.push_back({"node",
                         {path_of(node), std::string(node->syn()->view()), std::string(text_of(node->sem())),
                          std::string(text_of(node->lex())), node->selected() ? "selected" : "-"},
                         {placed.syn_x, get_node_y(placed, tw) - tw.font->ascent(),
                          tw.measure->width(node->syn()), height}});
    });
    return lines;
}

}  // namespace brindle
