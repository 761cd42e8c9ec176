#pragma once
// A tree window: its buttons and menus, the canvas with one tree, the status line. The command windows that
// belong to it are its children; each knows what it shows and what it does.
#include <QMainWindow>

#include <optional>
#include <string>
#include <string_view>

#include "display/hit_test.hpp"
#include "display/layout_params.hpp"
#include "model/corpus.hpp"
#include "model/tree_view.hpp"
#include "prolog/expansion.hpp"
#include "windows/canvas.hpp"
#include "windows/notice.hpp"

class QCheckBox;
class QMenu;

namespace brindle {

class BatchBox;
class FileRequestor;
class NumberSlider;
class Requestor;
class SearchBox;
class Selector;
class SizeController;
class SyntaxEditor;
class Workbench;

class TreeWindow final : public QMainWindow, public TreeView {
    Q_OBJECT
  public:
    explicit TreeWindow(Workbench &workbench);

    Workbench &workbench() { return workbench_; }
    Corpus &corpus();
    Canvas &canvas() { return *canvas_; }

    // The tree it shows.
    int tree_number() const { return tree_number_; }  // 0-based
    Tree *current_tree();                             // null in a corpus without trees
    // Shows that tree (0-based) from its upper left corner and makes "Previous" and "Next" fit.
    void show_tree(int tree);
    // Shows the tree or, beyond an end of the corpus, the last one at that end.
    void turn_to(int tree);
    // Makes the tree its current one, without showing it.
    void enter_tree(int tree);
    // The shown tree has changed, or how trees are drawn.
    void tree_changed(bool repaint = true);

    // The status line; "" clears it.
    void set_footer(std::string_view text);
    // A notice over the window; one pointing at a node, whose tree is shown and which is brought into view
    // first.
    void tell(std::string_view message, bool silent) { brindle::tell(this, message, silent); }
    int ask(const NoticeSpec &spec) { return brindle::ask(this, spec); }
    void tell_at(const Node *node, std::string_view message, bool silent);
    int ask_at(const Node *node, const NoticeSpec &spec);
    // True, after telling the user, when the shown tree is open in a syntax editor.
    bool is_disabled();

    // How trees are drawn.
    const LayoutParams &params() const { return params_; }
    void set_params(const LayoutParams &params);
    bool shows_punctuation() const { return show_punctuation_; }
    void show_punctuation(bool show);
    const std::string &font_name() const { return font_name_; }
    // Without such a font: "\nCannot use font: %s!\n" on standard error, and the application's font.
    void set_font_name(const std::string &name);
    void set_font_scale(int scale);
    const TreeFonts &fonts() const { return canvas_->picture().fonts(); }

    // "copy": the node awaits a tag.
    void begin_copy(Node &node);
    void show_corpus_name();
    // Keeps size, fonts and zoom for the next start.
    void remember();

    // The place of the last menu on the screen: where what it opens goes.
    QPoint menu_place() const { return menu_place_; }

    Predicate predicate;                  // the evaluation predicate
    InfoMode info_mode = InfoMode::none;  // the line of a node that was clicked last

    // The command windows.
    Requestor *const tag_editor;
    SyntaxEditor *const syntax_editor;
    Requestor *const syntactic_tag_editor;
    FileRequestor *const file_requestor;
    Requestor *const predicate_requestor;
    Requestor *const latex_requestor;
    Selector *const category_selector;
    Selector *const word_selector;
    SizeController *const size_controller;
    SearchBox *const search_box;
    BatchBox *const batch_box;

  protected:
    void closeEvent(QCloseEvent *event) override;

  private:
    struct Actions {
        QAction *close, *save, *save_as, *next, *previous, *propose, *search, *batch;
    };

    void create_actions();
    QAction *add_command(const QString &name, const QString &tip, const QList<QKeySequence> &keys,
                         std::function<void()> f);
    void create_panel();
    void create_menus();  // tree_window_menus.cpp
    void create_edit_menu(QMenu &menu);
    void create_view_menu(QMenu &menu);
    void create_tree_menu(QMenu &menu);
    void create_canvas();
    QWidget *button_of(QAction *action) const;
    void set_fonts();
    bool is_locked();  // the shown tree is open in a syntax editor
    void propose();
    void go_to_number();
    // tree_look.cpp: what of the look the user chooses in dialogs
    void choose_font();
    void create_colour_menu(QMenu &menu);
    void use_chosen_colours();

    // canvas_events.cpp: what presses and keys on the canvas do
    void pressed(const QMouseEvent &event, const Hit &hit);
    void open_menu(Node *node, QPoint place);  // null: that of the empty canvas
    bool key_pressed(const QKeyEvent &event);
    void copy_from(Node &clicked);
    void copy_missed();
    // What the statistics know about the part of a node that was clicked; with `mothers`, of the mothers of
    // such nodes. `place` is on the screen.
    void show_information(Node &node, bool mothers, QPoint place);

    Workbench &workbench_;
    Canvas *canvas_;
    Actions actions_ = {};
    QToolBar *buttons_ = nullptr;
    NumberSlider *tree_slider_ = nullptr;  // null in a corpus of one tree
    QCheckBox *check_box_ = nullptr;
    LayoutParams params_;
    bool show_punctuation_ = false;
    std::string font_name_ = start_font;
    int tree_number_ = 0;
    QPoint menu_place_;
};

}  // namespace brindle
