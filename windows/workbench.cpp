#include "windows/workbench.hpp"

#include <algorithm>

#include <fmt/format.h>

#include "display/corpus_characters.hpp"
#include "drawing/fonts.hpp"
#include "drawing/text.hpp"
#include "prolog/child_command.hpp"
#include "windows/batch_box.hpp"
#include "windows/main_window.hpp"
#include "windows/notice.hpp"
#include "windows/prolog_host.hpp"
#include "windows/syntax_editor.hpp"
#include "windows/tree_window.hpp"

namespace brindle {

Workbench::Workbench(Corpus &corpus)
    : corpus_(corpus),
      history_(corpus),
      main_window_(std::make_unique<MainWindow>(*this)),
      host_(std::make_unique<PrologWindowHost>(*this)),
      prolog_(std::make_unique<PrologSession>(*host_, corpus)) {
    corpus.listeners.push_back(this);
    run_.on_interrupt = [this] { stop_batch(); };
}

Workbench::~Workbench() {
    std::erase(corpus_.listeners, static_cast<ChangeListener *>(this));
    prolog_.reset();
    for (TreeWindow *window : windows_) delete window;
}

bool Workbench::start_prolog() {
    return prolog_->start(default_child(corpus_.name));
}

TreeWindow &Workbench::open_tree_window() {
    auto *window = new TreeWindow(*this);
    const auto missing = characters_without_font(characters_of(corpus_), QApplication::font());
    if (!missing.empty()) window->set_footer(tell_missing_characters(missing));
    windows_.push_back(window);
    window->show();
    window->show_tree(0);
    window->canvas().setFocus();
    return *window;
}

void Workbench::close(TreeWindow &window) {
    if (run_.window() == &window) stop_batch();
    prolog_->drop_claim_of(&window);
    if (copy && copy->window == &window) copy.reset();
    window.syntax_editor->release_tree();
    window.remember();
    std::erase(windows_, &window);
    window.hide();
    window.deleteLater();
}

TreeWindow *Workbench::window_of(const TreeView *view) const {
    const auto at = std::ranges::find_if(windows_, [&](const TreeWindow *w) { return w == view; });
    return at == windows_.end() ? nullptr : *at;
}

void Workbench::stop_batch() {
    if (TreeWindow *running = run_.window()) running->batch_box->stop();
}

void Workbench::end_copy() {
    if (copy) copy->window->set_footer("");
    copy.reset();
}

void Workbench::repaint_all() {
    for (TreeWindow *window : windows_) window->canvas().refresh();
}

// The windows that show a changed tree lay it out and draw it again; whoever ends a run repaints after it.
void Workbench::changed(const Corpus &, const Change &change) {
    for (TreeWindow *window : windows_)
        if (window->tree_number() == change.tree) window->tree_changed(run_.window() == nullptr);
}

void Workbench::set_all_busy(bool busy) {
    set_busy(*main_window_, busy);
    for (TreeWindow *window : windows_) {
        set_busy(*window, busy);
        for (CommandWindow *own : window->findChildren<CommandWindow *>()) set_busy(*own, busy);
    }
}

void Workbench::show_corpus_name() {
    main_window_->show_corpus_name();
    for (TreeWindow *window : windows_) window->show_corpus_name();
}

void Workbench::undo_or_redo(TreeWindow &window, bool undo) {
    if (std::ranges::any_of(corpus_.trees, &Tree::editing))
        return window.tell("A syntax editor is active; finish or cancel it first.", false);
    for (TreeWindow *open : windows_)
        for (CommandWindow *own : open->findChildren<CommandWindow *>())
            if (own->node()) own->hide();
    end_copy();
    prolog_->drop_claim();
    const auto step = undo ? history_.undo() : history_.redo();
    if (!step) return window.set_footer(undo ? "Nothing to undo" : "Nothing to redo");
    window.turn_to(step->tree);
    window.set_footer(fmt::format("{}: {}", undo ? "Undone" : "Redone", step->name));
}

bool Workbench::quit() {
    enum Answer { no = 1, yes = 2 };
    if (corpus_.unsaved_changes != 0 &&
        ask(main_window_.get(), {.message = "There are unsaved edits,\nare you sure you want to quit?",
                                 .buttons = {{"No, cancel that", no}, {"Yes", yes}},
                                 .default_value = no,
                                 .escape_value = no}) != yes)
        return false;
    for (TreeWindow *window : windows_) window->remember();
    settings_.remember_size("main", *main_window_);
    prolog_->quit();
    QCoreApplication::exit();  // quit() would ask each window, and those close by themselves
    return true;
}

}  // namespace brindle
