#include "gui/drawing.hpp"

#include <fmt/printf.h>

#include <algorithm>

#include "display/hit_test.hpp"
#include "display/layout.hpp"
#include "gui/dialogs.hpp"
#include "model/forest.hpp"
#include "model/path.hpp"

namespace brindle {

namespace {

constexpr const char *start_font = "lucidasans-bold";

// What lies between the start of a highlighted text and that of its rectangle.
constexpr int highlight_margin = 3;

int baseline(const ShownNode &shown, const LayoutParams &params) {
    return top_baseline + shown.depth * params.vdist;
}

Clip clip_of(const tk::Box &box) {
    return {box.x, box.y, box.x + box.w - 1, box.y + box.h - 1};
}

// Draws the nodes of one tree, each with the branch that leads to it, in the coordinates of the canvas.
class TreeDrawing {
  public:
    TreeDrawing(TreeWindow &tw, tk::Painter &painter)
        : tw_(tw), painter_(painter), h_(tw.font->height_of_h()) {}

    void draw(const ShownNode &shown);

  private:
    // Where the branches below a node start.
    int branch_start(const Node *node, int y) const {
        return node->sem ? y + h_ + 2 * tw_.text_gap : y + tw_.text_gap;
    }
    void draw_labels(const Node *node, int y);
    void draw_word(const Node *node, int y);

    TreeWindow &tw_;
    tk::Painter &painter_;
    int h_;
};

void TreeDrawing::draw(const ShownNode &shown) {
    const Node *node = shown.node;
    const int y = baseline(shown, tw_);
    draw_labels(node, y);
    if (node->lex) draw_word(node, y);
    if (const Node *mother = node->mother)
        painter_.line(tw_.gc, {mother->x, branch_start(mother, y - tw_.vdist)}, {node->x, y - h_});
}

void TreeDrawing::draw_labels(const Node *node, int y) {
    if (node->selected) {
        const int left = (node->sem ? std::min(node->syn_x, node->sem_x) : node->syn_x) - highlight_margin;
        const int height = node->sem ? 2 * h_ + tw_.text_gap + 5 : h_ + 5;
        painter_.fill(tw_.gc, {left, y - h_, 2 * (node->x - left) + 1, height});
    }
    const tk::GraphicsContext &gc = node->selected ? tw_.inverse_gc : tw_.gc;
    painter_.text(gc, {node->syn_x, y}, node->syn->view());
    if (node->sem) painter_.text(gc, {node->sem_x, y + h_ + tw_.text_gap}, node->sem->view());
}

void TreeDrawing::draw_word(const Node *node, int y) {
    const int ynext = y + tw_.vdist;
    if (node->selected)
        painter_.fill(tw_.gc, {node->lex_x - highlight_margin, ynext - h_,
                               2 * (node->x - node->lex_x) + 2 * highlight_margin, h_ + 5});
    painter_.text(node->selected ? tw_.inverse_gc : tw_.gc, {node->lex_x, ynext}, node->lex->view());
    painter_.line(tw_.gc, {node->x, branch_start(node, y)}, {node->x, ynext - h_});
}

// A scrollable length: the tree's with its margin, and at least what is in view.
int fitted(int tree, int visible) {
    return std::max(tree + top_baseline, visible);
}

void fit_canvas(TreeWindow &tw) {
    const TreeEntry &tree = *current_tree(tw);
    const tk::Size visible = tw.canvas->visible_size();
    const tk::Size needed{fitted(tree.width, visible.w),
                          fitted(tw.font->height_of_h() + tree.height, visible.h)};
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
    TreeEntry *tree = current_tree(tw);
    if (!tree) return;
    tree_layout(tw, tw, *tw.measure, *tree);
    tw.shown_nodes = std::make_unique<ShownNodes>(tree->root, tw.show_punctuation != 0);
    tw.check_box->set_value(tree->checked);
    fit_canvas(tw);
}

bool is_laid_out(const TreeWindow &tw) {
    const TreeEntry *tree = current_tree(tw);
    return tree && layout_owner == &tw && tw.shown_nodes && tw.shown_nodes->all().front().node == tree->root;
}

int get_node_y(const Node *node, const TreeWindow &tw) {
    return get_node_y(node, static_cast<const LayoutParams &>(tw));
}

Node *nodefind(TreeWindow &tw, tk::Point at) {
    const TreeEntry *tree = current_tree(tw);
    if (!tree) return nullptr;
    const Hit hit = find(tree->root, at.x, at.y, tw.font->height_of_h(), tw, tw.show_punctuation != 0);
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
    tw.shown_nodes->for_each_in(clip_of(painter.visible()), tw.font->height_of_h(), tw,
                                [&](const ShownNode &shown) { drawing.draw(shown); });
}

std::vector<tk::MapLine> node_lines(TreeWindow &tw) {
    std::vector<tk::MapLine> lines;
    if (!current_tree(tw)) return lines;
    check_active_GUI(tw);
    const tk::Size size = tw.canvas->visible_size();
    const tk::Box view{tw.hscrollbar->view_start(), tw.vscrollbar->view_start(), size.w, size.h};
    const int height = tw.font->height_of_h();
    tw.shown_nodes->for_each_in(clip_of(view), height, tw, [&](const ShownNode &shown) {
        const Node *node = shown.node;
        lines.push_back(
            {"node",
             {path_of(node), std::string(node->syn->view()), std::string(text_of(node->sem)),
              std::string(text_of(node->lex)), node->selected ? "selected" : "-"},
             {node->syn_x, baseline(shown, tw) - tw.font->ascent(), tw.measure->width(node->syn), height}});
    });
    return lines;
}

}  // namespace brindle
