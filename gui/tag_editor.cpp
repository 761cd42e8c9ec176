// The semantic tag editor.
#include <fmt/printf.h>

#include "gui/command_windows.hpp"
#include "gui/dialogs.hpp"
#include "model/forest.hpp"
#include "model/limits.hpp"
#include "stats/changes.hpp"

namespace brindle {

namespace {

// Why the text cannot be a tag; empty: it can.
std::string refusal(const std::string &text) {
    if (text.find(START_LEX_TAG) != std::string::npos)
        return fmt::sprintf(
            "You cannot use '%c' in a semantic tag; it is\n\033\n \t\t\t\tdefined as START_LEX_TAG in "
            "conventions",
            START_LEX_TAG);
    if (text.size() >= MAXSEM) return "Label too long";
    return {};
}

// Return in the field, or "Ok": the field's node gets the text as its tag.
void set_tag(TreeWindow &tw, tk::TextField &field) {
    Node *node = node_of(field);
    const std::string text = field.value();
    dismiss(*tw.tag_editor);
    if (!node || text == text_of(node->sem)) return;
    const std::string message = refusal(text);
    if (!message.empty()) {
        prompt_at_node(node, message, tw, false);
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
