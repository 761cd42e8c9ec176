#include "windows/selector.hpp"

#include "display/offered_tags.hpp"
#include "drawing/text.hpp"
#include "edit/change.hpp"
#include "windows/search_box.hpp"
#include "windows/tree_window.hpp"

namespace brindle {
namespace {

std::string_view row_of(const Label *tag) {
    return tag ? tag->view() : "(unlabeled)";
}

}  // namespace

Selector::Selector(TreeWindow &owner, Kind kind) : CommandWindow(owner), kind_(kind), list_(new QListWidget) {
    const bool word = kind == Kind::word;
    add_message(word ? "         Existing annotations of this lexical"
                     : "         Existing annotations for this category,");
    new_row();
    add_message(word ? "         item, ordered by decreasing frequency:"
                     : "         ordered by decreasing frequency:");
    new_row();
    list_->setUniformItemSizes(true);
    list_->setMinimumWidth(300);
    list_->setMinimumHeight(6 * list_->fontMetrics().lineSpacing() + 12);
    list_->setAccessibleName("Annotations");
    list_->installEventFilter(this);
    connect(list_, &QListWidget::itemDoubleClicked, this, [this] { take_tag(); });
    add_widget(list_);
    new_row();
    add_button("Ok", [this] { take_tag(); })->setDefault(true);
    where_ = add_button("Where?", [this] { search_for_it(); });
    add_cancel();
}

bool Selector::open_on(Node &node) {
    hide();
    node_ = &node;
    tags_ = kind_ == Kind::word ? tags_of_word(corpus(), node) : tags_of_category(corpus(), node);
    list_->clear();
    QStringList rows;
    for (const Label *tag : tags_) rows << to_qstring(row_of(tag));
    list_->addItems(rows);
    if (tags_.empty()) return false;
    list_->setCurrentRow(0);
    set_title(kind_ == Kind::word ? node.lex()->view() : node.syn()->view());
    list_->setFocus();
    show_at(window_in_hand().menu_place());
    return true;
}

// "8" and "2" move the row as the arrows do; the list would take them for the beginning of a row.
bool Selector::eventFilter(QObject *object, QEvent *event) {
    if (event->type() != QEvent::KeyPress) return CommandWindow::eventFilter(object, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const int row = list_->currentRow() + (key == Qt::Key_8 ? -1 : key == Qt::Key_2 ? 1 : 0);
    if (row == list_->currentRow()) return false;
    if (row >= 0 && row < list_->count()) list_->setCurrentRow(row);
    return true;
}

void Selector::take_tag() {
    hide();
    if (!node_) return;
    const auto chosen = list_->selectedItems();
    const Label *tag =
        chosen.isEmpty() ? nullptr : tags_[static_cast<std::size_t>(list_->row(chosen.front()))];
    if (window_in_hand().tree_number() != node_->tree()) window_in_hand().show_tree(node_->tree());
    set_tag(corpus(), node_, text_of(tag));
}

// "Where?": the search box with what the row says.
void Selector::search_for_it() {
    if (!node_ || tags_.empty()) return;
    const bool word = kind_ == Kind::word;
    window_in_hand().search_box->open_for(
        word ? std::string_view() : node_->syn()->view(), word ? text_of(node_->lex()) : std::string_view(),
        row_of(tags_[static_cast<std::size_t>(std::max(list_->currentRow(), 0))]), *where_);
}

void offer_tags(TreeWindow &window, Node &node) {
    if (window.info_mode == InfoMode::lex && node.lex()) {
        if (window.word_selector->open_on(node)) return;
        window.info_mode = InfoMode::nonterm;
    }
    if (!window.category_selector->open_on(node))
        window.tell_at(&node, "This category has no annotations to select", false);
}

}  // namespace brindle
