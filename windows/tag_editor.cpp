#include "windows/tag_editor.hpp"

#include "drawing/text.hpp"
#include "edit/change.hpp"
#include "windows/tree_window.hpp"

namespace brindle {

TagEditor::TagEditor(TreeWindow &owner) : CommandWindow(owner), field_(add_field("Semantic tag:", 36)) {
    add_ok_and_cancel([this] { take_tag(); });
}

void TagEditor::open(Node &node, QPoint place) {
    hide();
    node_ = &node;
    set_title(node.syn()->view());
    field_->setText(to_qstring(text_of(node.sem())));
    field_->selectAll();
    field_->setFocus();
    show_at(place);
}

// Return in the field, or "Ok": the node gets the text as its tag.
void TagEditor::take_tag() {
    hide();
    const std::string text = to_locale(field_->text());
    if (!node_ || text == text_of(node_->sem())) return;
    if (const auto reason = set_tag(corpus(), node_, text)) window_in_hand().tell_at(node_, *reason, false);
}

}  // namespace brindle
