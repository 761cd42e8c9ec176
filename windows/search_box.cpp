#include "windows/search_box.hpp"

#include <algorithm>

#include "drawing/text.hpp"
#include "windows/tree_window.hpp"

namespace brindle {

SearchBox::SearchBox(TreeWindow &owner) : CommandWindow(owner, "Search & Replace") {
    add_message("        Specify tags to use as search-keys");
    new_row();
    syntactic_ = add_field("Syntactic: ", 10);
    new_row();
    lexical_ = add_field("Lexical:    ", 25);
    new_row();
    semantic_ = add_field("Semantic:", 25);
    align_fields();
    new_row();
    replace_ = add_choice("Replace ", {"semantics", "syntax"});
    new_row();
    with_ = add_field("with:", 25);
    new_row();
    complete_labels_ = add_check_box("Complete labels only", true);
    new_row();
    prompt_at_replace_ = add_check_box("Prompt at replace", true);
    start_here_ = add_check_box("Start here", false);
    new_row();
    add_button("Search", [this] { search(window_in_hand(), SearchAction::search); })->setDefault(true);
    add_button("Replace", [this] { search(window_in_hand(), SearchAction::replace); });
    add_button("Replace all", [this] { search(window_in_hand(), SearchAction::replace_all); });
    add_cancel();
}

void SearchBox::open_for(std::string_view syntactic, std::string_view lexical, std::string_view semantic,
                         const QWidget &below) {
    syntactic_->setText(to_qstring(syntactic));
    lexical_->setText(to_qstring(lexical));
    semantic_->setText(to_qstring(semantic));
    show_below(below);
}

void SearchBox::uncover(QPoint place) {
    constexpr int margin = 120;  // half a label, and air
    if (!isVisible()) return;
    const QRect hidden = frameGeometry().adjusted(-margin / 2, -margin / 2, margin / 2, margin / 2);
    if (!hidden.contains(place)) return;
    const int left = place.x() - margin - frameGeometry().width();
    const int right = std::min(place.x() + margin, screen()->geometry().right() - frameGeometry().width());
    move(left >= 0 ? left : right, pos().y());
}

SearchCommand SearchBox::command(SearchAction action) const {
    const int shown_tree = window_in_hand().tree_number();
    return {.action = action,
            .request = {to_locale(syntactic_->text()), to_locale(lexical_->text()),
                        to_locale(semantic_->text()), complete_labels_->isChecked()},
            .choice = static_cast<ReplaceChoice>(replace_->currentIndex()),
            .with = to_locale(with_->text()),
            .prompts = prompt_at_replace_->isChecked(),
            .first_tree = start_here_->isChecked() ? shown_tree : 0,
            .shown_tree = shown_tree};
}

}  // namespace brindle
