#include "windows/selector.hpp"

#include <tsl/robin_set.h>

#include "drawing/text.hpp"
#include "edit/change.hpp"
#include "stats/statistics.hpp"
#include "windows/search_box.hpp"
#include "windows/tree_window.hpp"

namespace brindle {
namespace {

constexpr std::string_view unlabeled = "(unlabeled)";

std::string row_of(const Label *tag) {
    return std::string(tag ? tag->view() : unlabeled);
}

}  // namespace

Selector::Selector(TreeWindow &owner, Kind kind)
    : CommandWindow(owner), kind_(kind), list_(new QListWidget) {
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
    connect(list_, &QListWidget::itemDoubleClicked, this, [this] { take_tag(); });
    add_widget(list_);
    new_row();
    add_button("Ok", [this] { take_tag(); })->setDefault(true);
    where_ = add_button("Where?", [this] { search_for_it(); });
    add_cancel();
}

std::vector<std::string> Selector::tags_of_category() const {
    std::vector<std::string> tags;
    Statistics &statistics = *corpus().statistics;
    const RankedList &pairs = statistics.category_entry(node_->unit())->pairs;
    for (const Unit *u = statistics.first_of(pairs); u; u = statistics.next_of_owner(u))
        if (u->checked_count > 0) tags.push_back(row_of(u->sem));
    return tags;
}

// Each once, at its first place.
std::vector<std::string> Selector::tags_of_word() const {
    std::vector<std::string> tags;
    tsl::robin_set<const Label *> seen;
    Statistics &statistics = *corpus().statistics;
    const RankedList &units = statistics.word_entry(node_->unit())->units;
    for (const Unit *u = statistics.first_of(units); u; u = statistics.next_of_owner(u))
        if (u->checked_count > 0 && seen.insert(u->sem).second) tags.push_back(row_of(u->sem));
    return tags;
}

bool Selector::open(Node &node) {
    hide();
    node_ = &node;
    tags_ = kind_ == Kind::word ? tags_of_word() : tags_of_category();
    list_->clear();
    QStringList rows;
    for (const std::string &tag : tags_) rows << to_qstring(tag);
    list_->addItems(rows);
    if (tags_.empty()) return false;
    list_->setCurrentRow(0);
    set_title(kind_ == Kind::word ? node.lex()->view() : node.syn()->view());
    list_->setFocus();
    show_at(window_in_hand().menu_place());
    return true;
}

// "8" and "2" move the row as the arrows do; the list would take them for the beginning of a row.
void Selector::keyPressEvent(QKeyEvent *event) {
    const int step = event->key() == Qt::Key_8 || event->key() == Qt::Key_Up     ? -1
                     : event->key() == Qt::Key_2 || event->key() == Qt::Key_Down ? 1
                                                                                : 0;
    if (step == 0) return CommandWindow::keyPressEvent(event);
    const int row = list_->currentRow();
    if (row >= 0 && row + step >= 0 && row + step < list_->count()) list_->setCurrentRow(row + step);
}

void Selector::take_tag() {
    hide();
    if (!node_) return;
    const auto chosen = list_->selectedItems();
    const std::string tag =
        chosen.isEmpty() ? std::string() : tags_[static_cast<std::size_t>(list_->row(chosen.front()))];
    if (window_in_hand().tree_number() != node_->tree()) window_in_hand().show_tree(node_->tree());
    set_tag(corpus(), node_, tag == unlabeled ? std::string_view() : std::string_view(tag));
}

// "Where?": the search box with what the row says.
void Selector::search_for_it() {
    if (!node_ || tags_.empty()) return;
    const bool word = kind_ == Kind::word;
    window_in_hand().search_box->open_for(word ? std::string_view() : node_->syn()->view(),
                                          word ? text_of(node_->lex()) : std::string_view(),
                                          tags_[static_cast<std::size_t>(std::max(list_->currentRow(), 0))],
                                          *where_);
}

void offer_tags(TreeWindow &window, Node &node) {
    if (window.info_mode == InfoMode::lex && node.lex()) {
        if (window.word_selector->open(node)) return;
        window.info_mode = InfoMode::nonterm;
    }
    if (!window.category_selector->open(node))
        window.tell_at(&node, "This category has no annotations to select", false);
}

}  // namespace brindle
