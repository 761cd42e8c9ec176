// "edit syntax": the bracketing of a subtree as text, or the category of one node.
#include <cctype>
#include <cstdlib>

#include "commands/prolog_window.hpp"
#include "commands/subjects.hpp"
#include "corpus/writetrees.hpp"
#include "edit/change.hpp"
#include "gui/command_windows.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

constexpr const char *help =
    "M is Meta, C is Control, S is shift\n\ncut = M-x\npaste = M-v\n-\ngo line down = C-n\ngo line up = C-p\n"
    "go word forward = C-/\ngo right = right\ngo left = left\npagedown = pgdown\npageup = pgup\n-\n"
    "delete char backward = del,backspace\ndelete char forward = S-del,S-backspace\ndelete line backward = "
    "C-u\n"
    "delete line forward = C-U\ndelete word backward = C-w\ndelete word forward = C-W\n-\nagain = M-a\nundo "
    "= M-u";

// What the text window answers to beside those.
constexpr const char *our_keys =
    "\n-\ncopy, cut, paste = C-c, C-x, C-v\nselect all = C-a\nundo = C-z\nredo = S-C-z";

Tree &entry(int tree) {
    return the_corpus().tree(tree);
}

int edited_tree(const TreeWindow &tw) {
    return number_of(*tw.syntax_editor, Key::edited_tree);
}

// Takes the editor's lock off the tree that it holds.
void release_tree(TreeWindow &tw) {
    if (edited_tree(tw) >= 0) entry(edited_tree(tw)).editing = false;
    set_number(*tw.syntax_editor, Key::edited_tree, -1);
}

// A shown frame of a window, the node that it works on.
struct ActiveFrame {
    tk::CommandFrame *frame;
    Node *node;
};

std::vector<ActiveFrame> frames_on_nodes(const TreeWindow &tw) {
    return {{tw.syn_tag_editor, node_of(*tw.syn_tag_editor->panel().first_item())},
            {tw.tag_editor, node_of(*tw.tag_editor->panel().first_item())},
            {tw.latexfile_requestor, node_of(*tw.latexfile_requestor)},
            {tw.lex_selector, node_of(*tw.lex_list)},
            {tw.cat_selector, node_of(*tw.cat_list)}};
}

bool editor_in_scope(const Node *top, const ActiveFrame &active, TreeWindow &tw) {
    if (!active.frame->shown() || !is_below(top, active.node)) return false;
    prompt_at_node(active.node, "A window is active on this node;\nClose it first.", tw, false);
    active.frame->show();
    return true;
}

// A copy to a node that may go is over.
void end_copy_into(const Node *top) {
    if (!COPY_TO || !is_below(top, COPY_TO->node)) return;
    show_foot(*COPY_TO->window->frame, "");
    COPY_TO.reset();
}

bool all_precautions_taken(Node *node, TreeWindow &tw) {
    the_prolog().drop_claim_below(node);
    for (const auto &window : tree_windows())
        for (const ActiveFrame &active : frames_on_nodes(*window))
            if (editor_in_scope(node, active, tw)) return false;
    end_copy_into(node);
    release_tree(tw);
    entry(tw.tree_number).editing = true;
    set_number(*tw.syntax_editor, Key::edited_tree, tw.tree_number);
    return true;
}

void open_syntactic_tag_editor(Node &node, TreeWindow &tw) {
    tk::CommandFrame &frame = *tw.syn_tag_editor;
    frame.hide();
    auto &field = static_cast<tk::TextField &>(*frame.panel().first_item());
    set_node(field, &node);
    field.set_value(node.syn()->view());
    frame.set_title(node.syn()->view());
    position_frame_from_menu(frame, *tw.subtrees_menu, tw);
}

void edit_syntax(TreeWindow &tw, Node &node) {
    const bool is_tree_of_one = !node.dtrs() && !node.mother();
    if (!is_tree_of_one && !(node.dtrs() && node.dtrs()->selected())) {
        open_syntactic_tag_editor(node, tw);
        return;
    }
    if (!all_precautions_taken(&node, tw)) return;
    set_node(*tw.syntax_textsw, &node);
    if (tw.font) tw.syntax_textsw->set_font(*tw.font);
    tw.syntax_text = write_tree_to_editor(&node);
    tw.syntax_textsw->set_text(tw.syntax_text);
    tw.syntax_editor->set_pinned(true);
    position_frame_from_menu(*tw.syntax_editor, *tw.subtrees_menu, tw);
}

void cancel_editor(TreeWindow &tw, tk::Button &) {
    dismiss(*tw.syntax_editor);
    release_tree(tw);
}

// Tells in the editor's notice what is wrong, with the insertion point on the line that the message names.
void show_fault(const std::string &message, TreeWindow &tw) {
    if (const std::size_t at = message.find("line "); at != std::string::npos)
        tw.syntax_textsw->goto_line(std::atoi(message.c_str() + at + 5));
    tk::Notice notice(*tw.syntax_editor);
    prompt(notice, message, true);
}

void read_editor(TreeWindow &tw, tk::Button &button) {
    const int tree = edited_tree(tw);
    if (tree < 0) return;
    // Text that nobody has touched is as it was, whatever the widget made of its bytes.
    const std::string text =
        (tw.syntax_textsw->modified() ? tw.syntax_textsw->text() : tw.syntax_text) + "\n";
    if (const auto fault = replace_subtree(the_corpus(), node_of(*tw.syntax_textsw), text)) {
        show_fault(*fault, tw);
        return;
    }
    set_node(*tw.syntax_textsw, nullptr);
    if (tree != tw.tree_number) show_nr(tree, tw);
    cancel_editor(tw, button);
}

void edit_help(TreeWindow &tw, tk::Button &) {
    tk::Notice notice(*tw.syntax_editor);
    prompt(notice, std::string(help) + our_keys, true);
}

void syn_tag(TreeWindow &tw, tk::TextField &field) {
    tw.syn_tag_editor->hide();
    const std::string text = field.value();
    Node *node = node_of(field);
    if (!node || text.empty() || text == node->syn()->view()) return;
    if (const auto reason = set_category(the_corpus(), node, text)) prompt_at_node(node, *reason, tw, false);
}

}  // namespace

void install_syntax_editor(Commands &table) {
    table.edit_syntax = edit_syntax;
    table.read_editor = read_editor;
    table.edit_help = edit_help;
    table.cancel_editor = cancel_editor;
    table.syn_tag = syn_tag;
}

}  // namespace brindle
