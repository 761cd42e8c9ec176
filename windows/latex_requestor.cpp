#include "windows/latex_requestor.hpp"

#include <fmt/format.h>

#include "base/output_file.hpp"
#include "drawing/text.hpp"
#include "prolog/latex.hpp"
#include "windows/saving.hpp"
#include "windows/tree_window.hpp"

namespace brindle {

LatexRequestor::LatexRequestor(TreeWindow &owner) : CommandWindow(owner, "Tree to LaTeX") {
    add_message("Give filename for LaTeX representation of selected tree");
    new_row();
    field_ = add_file_field("    File:", 30);
    add_ok_and_cancel([this] { write(); });
}

void LatexRequestor::open(Node &node) {
    hide();
    node_ = &node;
    field_->setFocus();
    show_at(window_in_hand().menu_place());
}

void LatexRequestor::write() {
    hide();
    TreeWindow &window = window_in_hand();
    const std::string name = to_locale(field_->text());
    if (!node_ || name.empty() || !may_write(name, *this)) return;
    OutputFile file(name);
    const bool written =
        file.ok() &&
        file.write(latex_document(node_, node_->tree(), corpus().name, window.shows_punctuation())) &&
        file.commit();
    if (written)
        window.set_footer(fmt::format("{} created", name));
    else
        window.ask({.message = fmt::format("cannot write to\n{}\n{}", name, file.error()),
                    .buttons = {{"Bummer!", 1}}});
}

}  // namespace brindle
