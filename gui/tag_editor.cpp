// The semantic tag editor.
#include "base/limits.hpp"
#include "edit/change.hpp"
#include "gui/command_windows.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

// Return in the field, or "Ok": the field's node gets the text as its tag.
void take_tag(TreeWindow &tw, tk::TextField &field) {
    Node *node = node_of(field);
    const std::string text = field.value();
    dismiss(*tw.tag_editor);
    if (!node || text == text_of(node->sem())) return;
    if (const auto reason = set_tag(the_corpus(), node, text)) prompt_at_node(node, *reason, tw, false);
}

}  // namespace

void create_tag_editor(TreeWindow &tw) {
    tw.tag_editor = &tw.frame->add_command_frame();
    tk::TextField &field = tw.tag_editor->panel().add_text_field(
        "Semantic tag:", tk::first_at(), {.shown = 36, .stored = static_cast<int>(MAXSEM)});
    add_ok_and_cancel(*tw.tag_editor, field, take_tag);
    tw.tag_editor->fit();
}

}  // namespace brindle
