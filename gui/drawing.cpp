#include "gui/drawing.hpp"

#include <fmt/printf.h>

#include <algorithm>

#include "display/layout.hpp"
#include "model/forest.hpp"
#include "model/path.hpp"
#include "model/punctuation.hpp"

namespace brindle {

namespace {

constexpr const char *start_font = "lucidasans-bold";

// What lies between the start of a highlighted text and that of its rectangle.
constexpr int highlight_margin = 3;

// Applies f(node, depth) to every shown node in document order; where it returns false, the node's daughters
// are passed over.
template <class Function>
void for_each_shown(Node *root, bool show_punctuation, Function &&f) {
    Node *node = root;
    int depth = 0;
    for (;;) {
        if (f(node, depth) && node->dtrs) {
            node = node->dtrs;
            ++depth;
            continue;
        }
        Node *next = nullptr;
        while (node != root && !(next = next_shown_sister(node, show_punctuation))) {
            node = node->mother;
            --depth;
        }
        if (node == root) return;
        node = next;
    }
}

// Draws the nodes of one tree, all in the coordinates of the canvas.
class TreeDrawing {
  public:
    TreeDrawing(TreeWindow &tw, tk::Painter &painter)
        : tw_(tw), painter_(painter), h_(tw.font->height_of_h()) {}

    // The node's texts and its word, and the branches that go down from it.
    void draw(const Node *node, int y);

  private:
    void draw_labels(const Node *node, int y);
    void draw_word(const Node *node, int ystart, int ynext);

    TreeWindow &tw_;
    tk::Painter &painter_;
    int h_;
};

void TreeDrawing::draw(const Node *node, int y) {
    const int ynext = y + tw_.vdist;
    const int ystart = node->sem ? y + h_ + 2 * tw_.text_gap : y + tw_.text_gap;
    draw_labels(node, y);
    for (const Node *dtr = node->dtrs; dtr; dtr = next_shown_sister(dtr, tw_.show_punctuation != 0))
        painter_.line(tw_.gc, {node->x, ystart}, {dtr->x, ynext - h_});
    if (node->lex) draw_word(node, ystart, ynext);
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

void TreeDrawing::draw_word(const Node *node, int ystart, int ynext) {
    if (node->selected)
        painter_.fill(tw_.gc, {node->lex_x - highlight_margin, ynext - h_,
                               2 * (node->x - node->lex_x) + 2 * highlight_margin, h_ + 5});
    painter_.text(node->selected ? tw_.inverse_gc : tw_.gc, {node->lex_x, ynext}, node->lex->view());
    painter_.line(tw_.gc, {node->x, ystart}, {node->x, ynext - h_});
}

// A scrollable length: the tree's with its margin, and at least what is in view.
int fitted(int tree, int visible) {
    return std::max(tree + top_baseline, visible);
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

void tree_layout(TreeWindow &tw, TreeEntry &tree) {
    tree_layout(tw, tw, *tw.measure, tree);
}

void lay_out_current_tree(TreeWindow &tw) {
    TreeEntry *tree = current_tree(tw);
    if (!tree) {
        tw.canvas->set_scrollable_size(tw.canvas->visible_size());
        return;
    }
    tree_layout(tw, *tree);
    tw.check_box->set_value(tree->checked);
    const tk::Size visible = tw.canvas->visible_size();
    const tk::Size needed{fitted(tree->width, visible.w),
                          fitted(tw.font->height_of_h() + tree->height, visible.h)};
    if (needed != tw.canvas->scrollable_size()) tw.canvas->set_scrollable_size(needed);
}

int get_node_y(const Node *node, const TreeWindow &tw) {
    return get_node_y(node, static_cast<const LayoutParams &>(tw));
}

void canvas_repaint_proc(TreeWindow &tw, tk::Painter &painter) {
    lay_out_current_tree(tw);
    tw.gc.line_width = tw.line_width;
    painter.clear(tw.gc);
    const TreeEntry *tree = current_tree(tw);
    if (!tree) {
        painter.text(tw.gc, {top_baseline, top_baseline}, "This corpus has no trees.");
        return;
    }
    const tk::Box view = painter.visible();
    const int height = tw.font->height_of_h();
    TreeDrawing drawing(tw, painter);
    for_each_shown(tree->root, tw.show_punctuation != 0, [&](const Node *node, int depth) {
        const int y = top_baseline + depth * tw.vdist;
        if (y + tw.vdist + height >= view.y) drawing.draw(node, y);
        return y + tw.vdist - height <= view.y + view.h;
    });
}

std::vector<tk::MapLine> node_lines(TreeWindow &tw) {
    std::vector<tk::MapLine> lines;
    const TreeEntry *tree = current_tree(tw);
    if (!tree) return lines;
    if (layout_owner != &tw) lay_out_current_tree(tw);
    const int ascent = tw.font->ascent();
    const int height = tw.font->height_of_h();
    for_each_shown(tree->root, tw.show_punctuation != 0, [&](const Node *node, int depth) {
        const int y = top_baseline + depth * tw.vdist;
        lines.push_back({"node",
                         {path_of(node), std::string(node->syn->view()), std::string(text_of(node->sem)),
                          std::string(text_of(node->lex)), node->selected ? "selected" : "-"},
                         {node->syn_x, y - ascent, tw.measure->width(node->syn), height}});
        return true;
    });
    return lines;
}

}  // namespace brindle
