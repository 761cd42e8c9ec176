// The menu bar of a tree window: every command there is.
#include <QCheckBox>

#include "display/selection.hpp"
#include "drawing/text.hpp"
#include "windows/appearance.hpp"
#include "windows/batch_box.hpp"
#include "windows/node_menu.hpp"
#include "windows/search_box.hpp"
#include "windows/size_controller.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

constexpr const char *keys_help =
    "SELECT is the left mouse button, ADJUST the middle one, MENU the right one.\n\n"
    "SELECT on a node: select it; again: with all below it; again: not\n"
    "ADJUST on a node: what the corpus knows of its category, tag or word\n"
    "Control + ADJUST: the mothers under which such nodes occur\n"
    "MENU on a node: its menu; beside the tree: preferences\n"
    "Wheel: scroll, with Shift sideways, with Control zoom\n"
    "Drag beside the tree: move the view\n\n"
    "+ or Page Up, - or Page Down: the next tree, the one before\n"
    "Arrows: scroll\n"
    "f: fit the tree into the window\n"
    "Control-C: end a run\n"
    "Return: the button with the border, Escape: \"Cancel\"";

// The entry is filled whenever it is opened.
void fill_when_opened(QMenu &menu, std::function<void(QMenu &)> fill) {
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu, fill = std::move(fill)] {
        qDeleteAll(menu.findChildren<QMenu *>(Qt::FindDirectChildrenOnly));
        menu.clear();
        fill(menu);
    });
}

}  // namespace

void TreeWindow::create_menus() {
    QMenu *file = menuBar()->addMenu("&File");
    file->addAction(add_command("New window", "Opens one more tree window", {QKeySequence::New},
                                [this] { workbench_.open_tree_window(); }));
    file->addSeparator();
    file->addActions({actions_.save, actions_.save_as});
    file->addSeparator();
    file->addAction(actions_.close);
    file->addAction(
        add_command("Quit", "Ends the program", {QKeySequence::Quit}, [this] { workbench_.quit(); }));
    create_edit_menu(*menuBar()->addMenu("&Edit"));
    create_tree_menu(*menuBar()->addMenu("&Tree"));
    QMenu *node = menuBar()->addMenu("&Node");
    fill_when_opened(*node, [this](QMenu &menu) {
        const Tree *tree = current_tree();
        Node *selected = tree ? first_selected(tree->root) : nullptr;
        if (!selected || is_locked()) {
            menu.addAction("Select a node first")->setEnabled(false);
            return;
        }
        info_mode = selected->lex() ? InfoMode::term : InfoMode::nonterm;
        menu_place_ = canvas_->screen_place_of(selected);
        fill_tag_menu(menu, *this, *selected);
        menu.addSeparator();
        fill_subtree_menu(menu, *this, *selected);
        menu.addSeparator();
        menu.addAction("information", &menu,
                       [this, selected] { show_information(*selected, false, menu_place_); });
        menu.addAction("mothers", &menu,
                       [this, selected] { show_information(*selected, true, menu_place_); });
    });
    create_view_menu(*menuBar()->addMenu("&View"));
    QMenu *help = menuBar()->addMenu("&Help");
    help->addAction(add_command("Mouse and keys", "What mouse buttons and keys do",
                                {QKeySequence::HelpContents}, [this] { tell(keys_help, true); }));
    help->addAction("About BRINDLE", this, [this] {
        tell("BRINDLE " BRINDLE_VERSION "\nA workbench for treebanks annotated with meaning.", true);
    });
}

// The entries say what they would undo and redo.
void TreeWindow::create_edit_menu(QMenu &menu) {
    QAction *undo = add_command("Undo", "Takes the last command back", {QKeySequence("Ctrl+Z")},
                                [this] { workbench_.undo_or_redo(*this, true); });
    QAction *redo = add_command("Redo", "Does again what was taken back",
                                {QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y")},
                                [this] { workbench_.undo_or_redo(*this, false); });
    connect(&menu, &QMenu::aboutToShow, this, [this, undo, redo] {
        const auto next_undo = workbench_.history().next_undo(), next_redo = workbench_.history().next_redo();
        undo->setText(next_undo ? "Undo " + to_qstring(next_undo->name) : QString("Undo"));
        redo->setText(next_redo ? "Redo " + to_qstring(next_redo->name) : QString("Redo"));
    });
    menu.addActions({undo, redo});
    menu.addSeparator();
    menu.addAction(actions_.search);
}

void TreeWindow::create_tree_menu(QMenu &menu) {
    menu.addActions({actions_.next, actions_.previous});
    QAction *number = add_command("Go to number", "Shows the tree of a number", {QKeySequence("Ctrl+G")},
                                  [this] { go_to_number(); });
    number->setEnabled(corpus().amount() > 1);
    menu.addAction(number);
    menu.addSeparator();
    menu.addAction(add_command("Check", "Marks the tree as checked, or takes the mark away",
                               {QKeySequence("Ctrl+K")}, [this] { check_box_->click(); }));
    menu.addActions({actions_.propose, actions_.batch});
}

void TreeWindow::create_view_menu(QMenu &menu) {
    menu.addAction(add_command("Zoom in", "Larger", {QKeySequence::ZoomIn},
                               [this] { canvas_->set_zoom(canvas_->zoom() * 1.25); }));
    menu.addAction(add_command("Zoom out", "Smaller", {QKeySequence::ZoomOut},
                               [this] { canvas_->set_zoom(canvas_->zoom() / 1.25); }));
    menu.addAction(add_command("Usual size", "Without zoom", {QKeySequence("Ctrl+0")},
                               [this] { canvas_->set_zoom(1); }));
    menu.addAction(
        add_command("Fit", "The whole tree in the window", {QKeySequence("F")}, [this] { canvas_->fit(); }));
    menu.addSeparator();
    QMenu *preferences = menu.addMenu("Preferences");
    fill_when_opened(*preferences, [this](QMenu &filled) {
        menu_place_ = canvas_->viewport()->mapToGlobal(QPoint(0, 0));
        fill_preferences(filled, *this);
    });
    menu.addAction("Font...", this, [this] { choose_font(); });
    create_colour_menu(*menu.addMenu("Colours"));
    QMenu *themes = menu.addMenu("Theme");
    const std::pair<const char *, Theme> names[] = {
        {"as the platform has it", Theme::platform}, {"light", Theme::light}, {"dark", Theme::dark}};
    fill_when_opened(*themes, [this, names](QMenu &filled) {
        Settings &settings = workbench_.settings();
        for (const auto &[name, theme] : names)
            add_choice(filled, name, theme_in(settings) == theme,
                       [&settings, theme = theme] { use_theme(theme, settings); });
    });
}

}  // namespace brindle
