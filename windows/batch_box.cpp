#include "windows/batch_box.hpp"

#include <fmt/format.h>

#include "windows/number_slider.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

BatchBox::BatchBox(TreeWindow &owner, int trees) : CommandWindow(owner, "Batch processing") {
    add_range(trees);
    add_random_selection(trees);
    new_row();
    add_message("Actions:", true);
    add_actions();
    new_row();
    abort_ = add_button("Abort", [this] { stop(); });
    abort_->setEnabled(false);
    add_cancel();
    auto *interrupt = new QAction(this);
    interrupt->setShortcut(QKeySequence("Ctrl+C"));
    connect(interrupt, &QAction::triggered, this, [this] { window_in_hand().workbench().stop_batch(); });
    addAction(interrupt);
}

void BatchBox::add_range(int trees) {
    types_ = add_choice("Type of trees:", {"Only checked trees", "Only unchecked trees", "Both"});
    selection_ = add_choice("Type of selection:", {"All trees", "Random selection"});
    connect(types_, &QComboBox::currentIndexChanged, this, [this] { recount(); });
    connect(selection_, &QComboBox::currentIndexChanged, this, [this](int index) { set_random(index == 1); });
    new_row();
    add_message("Range of trees:", true);
    new_row();
    from_ = add_slider("From:", 1, trees, 1);
    new_row();
    to_ = add_slider("To:    ", 1, trees, trees);
    from_->align_with(*to_);
    connect(from_, &NumberSlider::changed, this, &BatchBox::move_start);
    connect(to_, &NumberSlider::changed, this, &BatchBox::move_end);
    new_row();
    add_message("Amount of trees in range:", true);
    amount_ = add_message(QString::number(trees), true);
}

void BatchBox::add_random_selection(int trees) {
    new_row();
    QLabel *size_label = add_message("Size of random selection:", true);
    new_row();
    size_ = add_slider("#", 0, trees, 0);
    new_row();
    QLabel *seed_label = add_message("Seed:");
    seed_ = new QSpinBox;
    seed_->setRange(0, 2147483647);
    seed_->setValue(1);
    seed_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    seed_->setAccessibleName("Seed:");
    seed_label->setBuddy(seed_);
    add_widget(seed_);
    random_items_ = {size_label, size_, seed_label, seed_};
    set_random(false);
}

void BatchBox::open_below(const QWidget &below) {
    recount();
    show_below(below);
    from_->take_focus();
}

// ---------------------------------------------------------------- the choice of trees

SelectionChoice BatchBox::choice() const {
    return {.types = static_cast<TreeTypes>(types_->currentIndex()),
            .from = from_->value(),
            .to = to_->value(),
            .random = selection_->currentIndex() == 1,
            .size = size_->value(),
            .seed = static_cast<unsigned>(seed_->value())};
}

void BatchBox::recount() {
    const int number = nr_of_appropriate_trees(corpus(), choice());
    amount_->setText(QString::number(number));
    size_->set_range(0, number);
}

// The range's end cannot come before its start; a slider needs two values, so the last tree leaves it one
// more.
void BatchBox::move_start(int from) {
    const int last = corpus().amount();
    to_->set_range(std::min(from, last - 1), last);
    if (from == last) to_->set_value(last);
    recount();
}

void BatchBox::move_end(int to) {
    if (to < from_->value())
        to_->set_value(from_->value());
    else
        from_->set_range(1, to);
    recount();
}

void BatchBox::set_random(bool random) {
    for (QWidget *item : random_items_) item->setEnabled(random);
}

// ---------------------------------------------------------------- runs

void BatchBox::set_running(bool running) {
    for (QWidget *item : findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) item->setEnabled(!running);
    abort_->setEnabled(running);
    if (!running) set_random(selection_->currentIndex() == 1);
}

// Everything but "Abort" takes no input, and no answer to "filter" is awaited any more.
void BatchBox::begin() {
    Workbench &workbench = window_in_hand().workbench();
    workbench.prolog().drop_claim();
    workbench.set_all_busy(true);
    set_busy(*this, false);
    set_running(true);
    window_in_hand().canvas().clear();
    trees_ = select_trees(corpus(), choice());
    taken_ = 0;
    shown_.start();
}

void BatchBox::stop() {
    TreeWindow &window = window_in_hand();
    Workbench &workbench = window.workbench();
    workbench.run().end();
    trees_.clear();
    workbench.set_all_busy(false);
    set_running(false);
    recount();
    window.set_footer("");
    if (window.current_tree()) window.show_tree(window.tree_number());  // the canvas was cleared
}

// Says how far a run is, no more often than a person reads.
void BatchBox::show_progress(const std::string &text) {
    ++taken_;
    if (text.empty() || shown_.elapsed() < 100) return;
    shown_.start();
    window_in_hand().set_footer(fmt::format("{} {} of {}", text, taken_, trees_.size()));
}

void BatchBox::run(std::string footer, const std::function<int(Run &)> &action) {
    TreeWindow &window = window_in_hand();
    CurrentRun &current = window.workbench().run();
    begin();
    if (!footer.empty()) window.set_footer(footer);
    const auto take = [&](int tree) {
        window.enter_tree(tree);
        show_progress(footer);
    };
    Run run(corpus(), trees_, {.dispatch = [&current] { current.dispatch(); }, .take = take});
    const int number = current.begin(window, [&run] { run.stop(); });
    const int last = action(run);
    if (!current.goes_on(number)) return;
    if (last >= 0) window.enter_tree(last);
    stop();
}

}  // namespace brindle
