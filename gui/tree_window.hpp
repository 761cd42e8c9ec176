#pragma once
// The record of an open tree window. Windows, items and menus are the toolkit's: the frame owns them, the
// record only names them.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "display/layout.hpp"
#include "display/text_measure.hpp"
#include "gui/keys.hpp"
#include "model/corpus.hpp"
#include "model/tree_view.hpp"
#include "prolog/expansion.hpp"
#include "toolkit/frame.hpp"
#include "toolkit/menu.hpp"
#include "toolkit/notice.hpp"
#include "toolkit/painter.hpp"

namespace brindle {

// The layout's sizes (vdist, sisterdist, ..., font_scale, size_table) are inherited.
struct TreeWindow : TreeView, LayoutParams {
    tk::Frame *frame = nullptr;
    tk::Frame *main_frame = nullptr;
    // The command windows.
    tk::CommandFrame *syntax_editor = nullptr;
    tk::CommandFrame *syn_tag_editor = nullptr;
    tk::CommandFrame *tag_editor = nullptr;
    tk::CommandFrame *file_requestor = nullptr;
    tk::CommandFrame *pred_requestor = nullptr;
    tk::CommandFrame *latexfile_requestor = nullptr;
    tk::CommandFrame *search_box = nullptr;
    tk::CommandFrame *cat_selector = nullptr;
    tk::CommandFrame *lex_selector = nullptr;
    tk::CommandFrame *results_requestor = nullptr;
    tk::CommandFrame *size_controller = nullptr;
    tk::CommandFrame *batch_box = nullptr;
    // The button panel. In a corpus of one tree the first three are null.
    tk::Panel *panel = nullptr;
    tk::Button *next_button = nullptr;
    tk::Button *previous_button = nullptr;
    tk::Slider *tree_slider = nullptr;
    tk::Button *save_as_button = nullptr;
    tk::CheckBox *check_box = nullptr;
    // The search box.
    tk::TextField *search_lex = nullptr;
    tk::TextField *search_sem = nullptr;
    tk::TextField *search_syn = nullptr;
    tk::TextField *replace_with = nullptr;
    tk::Choice *replace_choice = nullptr;  // 0 semantics, 1 syntax
    tk::CheckBox *prompt_at_replace = nullptr;
    tk::CheckBox *start_here = nullptr;
    tk::CheckBox *complete_labels = nullptr;
    // The annotation selectors.
    tk::List *lex_list = nullptr;
    tk::List *cat_list = nullptr;
    // The size controller.
    tk::Slider *mindist_slider = nullptr;
    tk::Slider *sisterdist_slider = nullptr;
    tk::Slider *vdist_slider = nullptr;
    tk::Slider *thickness_slider = nullptr;
    // The "Save as" requestor.
    tk::Choice *format_choice = nullptr;  // 0 ATIS, 1 DOP, 2 DOP2, 3 information format
    // The batch box.
    tk::Choice *tree_types_choice = nullptr;  // 0 checked, 1 unchecked, 2 both
    tk::Choice *selection_choice = nullptr;   // 0 all, 1 random
    tk::Slider *from_slider = nullptr;
    tk::Slider *to_slider = nullptr;
    tk::Slider *random_size_slider = nullptr;
    tk::Message *random_size_label = nullptr;
    tk::NumericField *seed_field = nullptr;
    tk::Message *range_amount = nullptr;
    tk::Button *abort_button = nullptr;
    // The canvas, on which the tree is drawn and which gets its events.
    tk::Canvas *canvas = nullptr;
    tk::Scrollbar *hscrollbar = nullptr;
    tk::Scrollbar *vscrollbar = nullptr;
    tk::TextWindow *syntax_textsw = nullptr;
    std::string syntax_text;  // what it showed when the editor was opened
    std::unique_ptr<tk::Notice> notice;
    std::unique_ptr<tk::Menu> annotation_menu;
    std::unique_ptr<tk::Menu> prefs_menu;
    std::unique_ptr<tk::Menu> subtrees_menu;
    // Drawing.
    const tk::Font *font = nullptr;  // the toolkit's
    std::string font_name;
    std::unique_ptr<CachedMeasure> measure;  // of texts in the font
    std::optional<TreeLayout> layout;        // of the shown tree; none once something has changed
    tk::GraphicsContext gc;
    tk::GraphicsContext inverse_gc;

    bool show_punctuation = false;     // punctuation daughters are laid out, drawn and exported
    Predicate predicate;               // the evaluation predicate
    int tree_number = 0;               // the shown tree, 0-based; hung on the frame under Key::tree_number
    int info_mode = 0;                 // what the last hit test hit: 2 tag, 3 word, 4 or 5 category
    std::vector<int> batch_selection;  // the trees of the current run, in the order of processing
};

// The pending copy of a tag to a node.
struct CopyRequest {
    Node *node;  // the node that is to receive a tag
    int tree;    // its tree
    TreeWindow *window;
};

// Null when no copy is pending. Set by "copy", cleared by the click that ends the copy mode and by "Close".
extern std::unique_ptr<CopyRequest> COPY_TO;

// The open tree windows in the order of their opening.
const std::vector<std::unique_ptr<TreeWindow>> &tree_windows();

// A new record, owned by the list above.
TreeWindow &add_tree_window();

// Closes the window: ends its copy mode and its syntax editor's lock, destroys its frame with everything in
// it and releases the record when the callbacks that may still use it have returned. REQUIRES: no run of it
// goes on.
void close_tree_window(TreeWindow &tw);

// The window behind a TreeView; null for null and for a window that has been closed.
TreeWindow *open_window(TreeView *view);

// The tree that the window shows; null in a corpus without trees.
Tree *current_tree(const TreeWindow &tw);

}  // namespace brindle
