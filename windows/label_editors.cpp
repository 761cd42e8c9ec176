#include "windows/label_editors.hpp"

#include "drawing/text.hpp"
#include "edit/change.hpp"
#include "windows/command_window.hpp"
#include "windows/tree_window.hpp"

namespace brindle {
namespace {

void take_tag(TreeWindow &window, Node *node, const std::string &text) {
    if (text == text_of(node->sem())) return;
    if (const auto reason = set_tag(window.corpus(), node, text)) window.tell_at(node, *reason, false);
}

void take_category(TreeWindow &window, Node *node, const std::string &text) {
    if (text.empty() || text == node->syn()->view()) return;
    if (const auto reason = set_category(window.corpus(), node, text)) window.tell_at(node, *reason, false);
}

void open(Requestor &editor, Node &node, std::string_view text) {
    editor.set_title(node.syn()->view());
    editor.field().setText(to_qstring(text));
    editor.field().selectAll();
    editor.open_on(&node);
}

}  // namespace

Requestor *new_tag_editor(TreeWindow &owner) {
    auto *editor = new Requestor(owner);
    editor->ask_for(editor->add_field("Semantic tag:", 36),
                    [&owner, editor](const std::string &text) { take_tag(owner, editor->node(), text); });
    return editor;
}

Requestor *new_syntactic_tag_editor(TreeWindow &owner) {
    auto *editor = new Requestor(owner);
    editor->ask_for(editor->add_field("Syntactic tag:", 36), [&owner, editor](const std::string &text) {
        take_category(owner, editor->node(), text);
    });
    return editor;
}

void edit_tag(TreeWindow &window, Node &node) {
    open(*window.tag_editor, node, text_of(node.sem()));
}

void edit_category(TreeWindow &window, Node &node) {
    open(*window.syntactic_tag_editor, node, node.syn()->view());
}

}  // namespace brindle
