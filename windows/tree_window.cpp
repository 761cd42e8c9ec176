#include "windows/tree_window.hpp"

#include <algorithm>

#include <fmt/printf.h>

#include "drawing/text.hpp"
#include "edit/change.hpp"
#include "propose/run.hpp"
#include "windows/batch_box.hpp"
#include "windows/formulas.hpp"
#include "windows/label_editors.hpp"
#include "windows/main_window.hpp"
#include "windows/number_slider.hpp"
#include "windows/saving.hpp"
#include "windows/search_box.hpp"
#include "windows/selector.hpp"
#include "windows/size_controller.hpp"
#include "windows/syntax_editor.hpp"
#include "windows/workbench.hpp"

namespace brindle {

TreeWindow::TreeWindow(Workbench &workbench)
    : tag_editor(new_tag_editor(*this)),
      syntax_editor(new SyntaxEditor(*this)),
      syntactic_tag_editor(new_syntactic_tag_editor(*this)),
      file_requestor(new FileRequestor(*this)),
      predicate_requestor(new_predicate_requestor(*this)),
      latex_requestor(new_latex_requestor(*this)),
      category_selector(new Selector(*this, Selector::Kind::category)),
      word_selector(new Selector(*this, Selector::Kind::word)),
      size_controller(new SizeController(*this)),
      search_box(new SearchBox(*this)),
      batch_box(new BatchBox(*this, workbench.corpus().amount())),
      workbench_(workbench),
      canvas_(new Canvas(this)) {
    create_actions();
    create_panel();
    create_menus();
    create_canvas();
    show_corpus_name();
    set_footer(corpus().amount() == 0 ? "This corpus has no trees." : "");
    const QSize screen_size = screen()->availableSize();
    resize(workbench.settings().window_size("tree",
                                            {screen_size.width() * 3 / 4, screen_size.height() * 5 / 6}));
}

Corpus &TreeWindow::corpus() {
    return workbench_.corpus();
}

// ---------------------------------------------------------------- what it holds

QAction *TreeWindow::add_command(const QString &name, const QString &tip, const QList<QKeySequence> &keys,
                                 std::function<void()> f) {
    auto *action = new QAction(name, this);
    action->setShortcuts(keys);
    action->setToolTip(keys.isEmpty() ? tip
                                      : tip + "  (" + keys.front().toString(QKeySequence::NativeText) + ")");
    connect(action, &QAction::triggered, this, std::move(f));
    addAction(action);
    return action;
}

void TreeWindow::create_actions() {
    actions_.close = add_command("Close", "Closes this window; nothing is saved", {QKeySequence::Close},
                                 [this] { workbench_.close(*this); });
    actions_.save = add_command("Save", "Saves the corpus", {QKeySequence::Save}, [this] { save(*this); });
    actions_.save_as =
        add_command("Save as", "Saves the corpus under a name, in one of four formats",
                    {QKeySequence("Ctrl+Shift+S")}, [this] { save_as(*this, *button_of(actions_.save_as)); });
    actions_.next = add_command("Next", "The next tree", {Qt::Key_Plus, Qt::Key_PageUp},
                                [this] { turn_to(tree_number_ + 1); });
    actions_.previous = add_command("Previous", "The tree before", {Qt::Key_Minus, Qt::Key_PageDown},
                                    [this] { turn_to(tree_number_ - 1); });
    actions_.propose = add_command("Propose", "Proposes a whole annotation from the checked trees", {},
                                   [this] { propose(); });
    actions_.search = add_command("Search", "Searches and replaces labels", {QKeySequence::Find},
                                  [this] { search_box->show_below(*button_of(actions_.search)); });
    actions_.batch = add_command("Batch", "Works on many trees", {},
                                 [this] { batch_box->open_below(*button_of(actions_.batch)); });
}

// A corpus of one tree has no buttons to turn pages, to search and to run a batch.
void TreeWindow::create_panel() {
    const bool several = corpus().amount() > 1;
    buttons_ = addToolBar("Commands");
    for (QAction *action : {actions_.close, actions_.save, actions_.save_as}) buttons_->addAction(action);
    if (several) buttons_->addActions({actions_.next, actions_.previous});
    buttons_->addAction(actions_.propose);
    if (several) buttons_->addActions({actions_.search, actions_.batch});
    addToolBarBreak();
    QToolBar *second = addToolBar("Tree");
    if (several) {
        tree_slider_ = new NumberSlider("Tree #", 1, corpus().amount(), 1, 120);
        connect(tree_slider_, &NumberSlider::changed, this, [this](int tree) { turn_to(tree - 1); });
        connect(tree_slider_, &NumberSlider::left, this, [this] { canvas_->setFocus(); });
        second->addWidget(tree_slider_);
    } else {
        for (QAction *action : {actions_.next, actions_.previous, actions_.search, actions_.batch})
            action->setEnabled(false);
    }
    check_box_ = new QCheckBox("Check:");
    check_box_->setLayoutDirection(Qt::RightToLeft);  // the box follows its label
    check_box_->setEnabled(corpus().amount() > 0);
    check_box_->setToolTip("Marks the tree as checked");
    connect(check_box_, &QCheckBox::clicked, this, [this](bool checked) {
        if (current_tree()) set_checked(corpus(), tree_number_, checked);
    });
    second->addWidget(check_box_);
    for (QToolBar *bar : {buttons_, second}) {
        bar->setMovable(false);
        bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        if (auto *more = bar->findChild<QToolButton *>("qt_toolbar_ext_button"))
            more->setArrowType(Qt::DownArrow);  // its usual picture cannot be seen in the dark
    }
}

// Where a command's button stands; the window itself when the panel has no room for it.
QWidget *TreeWindow::button_of(QAction *action) const {
    QWidget *button = buttons_->widgetForAction(action);
    return button && button->isVisible() ? button : static_cast<QWidget *>(buttons_);
}

void TreeWindow::create_canvas() {
    setCentralWidget(canvas_);
    canvas_->on_need = [this]() -> Canvas::Shown {
        const Tree *tree = current_tree();
        return {tree ? tree->root : nullptr, params_, show_punctuation_};
    };
    canvas_->on_laid_out = [this] {
        if (const Tree *tree = current_tree()) check_box_->setChecked(tree->checked);
    };
    canvas_->on_press = [this](const QMouseEvent &event, const Hit &hit) { pressed(event, hit); };
    canvas_->on_key = [this](QKeyEvent &event) { return key_pressed(event); };
    if (corpus().amount() == 0) canvas_->set_message("This corpus has no trees.");
    const Settings &settings = workbench_.settings();
    const int scale = settings.value("tree/font_scale", params_.font_scale).toInt();
    choose_font_scale(params_, std::clamp(scale, 0, nr_of_font_scales - 1));
    set_font_name(settings.value("tree/font", start_font).toString().toStdString());
    canvas_->set_zoom(settings.value("tree/zoom", 1).toDouble());
    use_chosen_colours();
}

void TreeWindow::show_corpus_name() {
    setWindowTitle(to_qstring(corpus().name));
}

void TreeWindow::remember() {
    Settings &settings = workbench_.settings();
    settings.remember_size("tree", *this);
    settings.setValue("tree/font", QString::fromStdString(font_name_));
    settings.setValue("tree/font_scale", params_.font_scale);
    settings.setValue("tree/zoom", canvas_->zoom());
}

// ---------------------------------------------------------------- the tree

Tree *TreeWindow::current_tree() {
    return tree_number_ >= 0 && tree_number_ < corpus().amount() ? &corpus().tree(tree_number_) : nullptr;
}

void TreeWindow::enter_tree(int tree) {
    tree_number_ = tree;
    if (tree_slider_) tree_slider_->set_value(tree + 1);
}

void TreeWindow::show_tree(int tree) {
    enter_tree(tree);
    if (tree_slider_) {
        actions_.previous->setEnabled(tree > 0);
        actions_.next->setEnabled(tree < corpus().amount() - 1);
    }
    workbench_.repaint_all();
    canvas_->scroll_to_start();
}

void TreeWindow::turn_to(int tree) {
    if (corpus().amount() > 0) show_tree(std::clamp(tree, 0, corpus().amount() - 1));
}

void TreeWindow::tree_changed(bool repaint) {
    canvas_->forget();
    if (repaint) canvas_->refresh();
}

void TreeWindow::propose() {
    if (!current_tree()) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool undecided = propose_tree(corpus(), tree_number_);
    QApplication::restoreOverrideCursor();
    workbench_.repaint_all();
    if (undecided)
        tell("The annotation of the selected nodes\n\033\n\t\t\tcould not be inferred from their daughters",
             true);
}

void TreeWindow::go_to_number() {
    bool answered = false;
    const int tree = QInputDialog::getInt(this, "Go to number", "Tree #", tree_number_ + 1, 1,
                                          corpus().amount(), 1, &answered);
    if (answered) turn_to(tree - 1);
}

// ---------------------------------------------------------------- telling

void TreeWindow::set_footer(std::string_view text) {
    brindle::set_footer(*this, text);
}

void TreeWindow::tell_at(const Node *node, std::string_view message, bool silent) {
    ask_at(node, {.message = std::string(message), .silent = silent});
}

// The window may have turned to another tree since a command was begun at the node.
int TreeWindow::ask_at(const Node *node, const NoticeSpec &spec) {
    if (node->tree() != tree_number_) show_tree(node->tree());
    show();
    canvas_->make_visible(node);
    return brindle::ask(this, spec, canvas_->screen_place_of(node));
}

bool TreeWindow::is_locked() {
    const Tree *tree = current_tree();
    return tree && tree->editing;
}

bool TreeWindow::is_disabled() {
    if (!is_locked()) return false;
    tell("A syntax editor is active on this tree,\ntherefore this tree's interactivity is disabled.", true);
    return true;
}

// ---------------------------------------------------------------- how trees are drawn

void TreeWindow::set_params(const LayoutParams &params) {
    params_ = params;
    tree_changed();
}

void TreeWindow::show_punctuation(bool show) {
    if (show_punctuation_ == show) return;
    show_punctuation_ = show;
    tree_changed();
}

void TreeWindow::set_font_name(const std::string &name) {
    font_name_ = name;
    set_fonts();
}

void TreeWindow::set_font_scale(int scale) {
    choose_font_scale(params_, scale);
    size_controller->show_sizes();  // in case the controls are open: they work on the current font size
    set_fonts();
}

void TreeWindow::set_fonts() {
    auto fonts = find_tree_fonts(font_name_, params_.font_scale);
    if (!fonts) {
        fmt::fprintf(stderr, "\nCannot use font: %s!\n", font_name_);
        const QFont font = QApplication::font();
        fonts = TreeFonts{font, font, font};
    }
    canvas_->set_fonts(*fonts);
    tree_changed();
}

// ---------------------------------------------------------------- its end

// The window manager's button is "Close".
void TreeWindow::closeEvent(QCloseEvent *event) {
    event->ignore();
    workbench_.close(*this);
}

}  // namespace brindle
