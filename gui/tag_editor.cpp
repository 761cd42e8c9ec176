// The semantic tag editor.
#include "gui/command_windows.hpp"
#include "gui/dialogs.hpp"
#include "model/forest.hpp"
#include "model/label_rules.hpp"
#include "model/limits.hpp"
#include "stats/changes.hpp"

namespace brindle {

namespace {

// Return in the field, or "Ok": the field's node gets the text as its tag.
void set_tag(TreeWindow &tw, tk::TextField &field) {
    Node *node = node_of(field);
    const std::string text = field.value();
    dismiss(*tw.tag_editor);
    if (!node || text == text_of(node->sem)) return;
    if (const auto reason = refuse_tag(text)) {
        prompt_at_node(node, *reason, tw, false);
        return;
    }
    const TreeEntry *tree = tree_of(node);
    TreeCheckedScope scope(tree && tree->checked);
    new_label(node, text, &tw);
}

}  // namespace

void create_tag_editor(TreeWindow &tw) {
    tw.tag_editor = &tw.frame->add_command_frame();
    tk::TextField &field = tw.tag_editor->panel().add_text_field(
        "Semantic tag:", tk::first_at(), {.shown = 36, .stored = static_cast<int>(MAXSEM)});
    add_ok_and_cancel(*tw.tag_editor, field, set_tag);
    tw.tag_editor->fit();
}

}  // namespace brindle
