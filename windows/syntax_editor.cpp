#include "windows/syntax_editor.hpp"

#include <cstdlib>

#include "corpus/writetrees.hpp"
#include "drawing/text.hpp"
#include "edit/change.hpp"
#include "windows/bracketing_edit.hpp"
#include "windows/label_editors.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

void edit_syntax(TreeWindow &window, Node &node) {
    const bool is_tree_of_one = !node.dtrs() && !node.mother();
    if (is_tree_of_one || (node.dtrs() && node.dtrs()->selected()))
        window.syntax_editor->open_on(node);
    else
        edit_category(window, node);
}

SyntaxEditor::SyntaxEditor(TreeWindow &owner)
    : CommandWindow(owner, "Syntax Editor"), edit_(new BracketingEdit) {
    auto *strip = new QVBoxLayout;
    const auto add = [&](const char *label, std::function<void()> pressed) {
        auto *button = new QPushButton(label);
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::TabFocus);  // the text keeps the keyboard
        connect(button, &QPushButton::clicked, this, std::move(pressed));
        strip->addWidget(button);
    };
    add("Ok", [this] { take_text(); });
    add("Help", [this] { tell(this, BracketingEdit::help(), true); });
    add("Cancel", [this] { reject(); });
    strip->addStretch();
    auto *whole = new QWidget;
    auto *columns = new QHBoxLayout(whole);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addLayout(strip);
    columns->addWidget(edit_, 1);
    edit_->setMinimumSize(QSize(420, 360).boundedTo(screen()->availableSize() - QSize(160, 90)));
    layout()->addWidget(whole);
    setSizeGripEnabled(true);
}

// No other window may work on a node that is to be replaced, and no copy or answer may be awaited for one.
bool SyntaxEditor::subtree_is_free(Node &top) {
    Workbench &workbench = window_in_hand().workbench();
    workbench.prolog().drop_claim_below(&top);
    for (TreeWindow *window : workbench.tree_windows())
        for (CommandWindow *active : window->findChildren<CommandWindow *>()) {
            if (!active->isVisible() || !is_below(&top, active->node())) continue;
            window_in_hand().tell_at(active->node(), "A window is active on this node;\nClose it first.",
                                     false);
            active->show();
            active->raise();
            return false;
        }
    if (workbench.copy && is_below(&top, workbench.copy->node)) workbench.end_copy();
    return true;
}

void SyntaxEditor::open_on(Node &top) {
    if (!subtree_is_free(top)) return;
    release_tree();
    top_ = &top;
    tree_ = window_in_hand().tree_number();
    corpus().tree(tree_).editing = true;
    text_ = write_tree_to_editor(&top);
    edit_->setPlainText(to_qstring(text_));
    edit_->document()->setModified(false);
    edit_->setFocus();
    show_at(window_in_hand().menu_place());
}

void SyntaxEditor::release_tree() {
    if (tree_ >= 0) corpus().tree(tree_).editing = false;
    tree_ = -1;
}

void SyntaxEditor::reject() {
    hide();
    release_tree();
}

// Tells what is wrong, with the insertion point on the line that the message names.
void SyntaxEditor::show_fault(const std::string &message) {
    if (const std::size_t at = message.find("line "); at != std::string::npos)
        edit_->go_to_line(std::atoi(message.c_str() + at + 5));
    tell(this, message, true);
}

// Text that nobody has touched is as it was, whatever the field made of its bytes.
void SyntaxEditor::take_text() {
    if (tree_ < 0) return;
    const bool modified = edit_->document()->isModified();
    const std::string text = (modified ? to_locale(edit_->toPlainText()) : text_) + "\n";
    if (const auto fault = replace_subtree(corpus(), top_, text)) return show_fault(*fault);
    top_ = nullptr;
    if (tree_ != window_in_hand().tree_number()) window_in_hand().show_tree(tree_);
    reject();
}

}  // namespace brindle
