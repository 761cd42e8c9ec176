#include "windows/workbench.hpp"

#include <algorithm>

#include <fmt/format.h>

#include "drawing/characters.hpp"
#include "drawing/text.hpp"
#include "prolog/child_command.hpp"
#include "windows/command_window.hpp"
#include "windows/main_window.hpp"
#include "windows/notice.hpp"
#include "windows/prolog_host.hpp"
#include "windows/tree_window.hpp"

namespace brindle {

Workbench::Workbench(Corpus &corpus)
    : corpus_(corpus),
      main_window_(std::make_unique<MainWindow>(*this)),
      host_(std::make_unique<PrologWindowHost>(*this)),
      prolog_(std::make_unique<PrologSession>(*host_, corpus)) {
    corpus.listeners.push_back(this);
    run_.on_interrupt = [this] {
        if (TreeWindow *running = run_.window()) running->stop_batch();
    };
}

Workbench::~Workbench() {
    std::erase(corpus_.listeners, static_cast<ChangeListener *>(this));
    prolog_.reset();
    for (TreeWindow *window : windows_) delete window;
}

bool Workbench::start_prolog() {
    return prolog_->start(default_child(corpus_.name));
}

// For the footer: which characters of the corpus would be boxes; "": none.
std::string Workbench::tell_of_missing_fonts() const {
    CharacterSet set;
    const Units &units = corpus_.units;
    for (std::uint32_t n = 1; n < units.end(); ++n)
        for (const Label *label : {units[n].syn, units[n].sem, units[n].lex})
            if (label) set.add(label->view());
    const std::u32string missing = characters_without_font(set, QApplication::font());
    if (missing.empty()) return {};
    constexpr std::size_t most = 8;
    std::string shown;
    for (const char32_t c : missing.substr(0, most))
        shown += fmt::format(" U+{:04X}", static_cast<std::uint32_t>(c));
    return fmt::format("No installed font has {} characters of this corpus:{}{}", missing.size(), shown,
                       missing.size() > most ? " ..." : "");
}

TreeWindow &Workbench::open_tree_window() {
    auto *window = new TreeWindow(*this);
    if (const std::string text = tell_of_missing_fonts(); !text.empty()) window->set_footer(text);
    windows_.push_back(window);
    window->show();
    window->show_tree(0);
    window->canvas().setFocus();
    return *window;
}

void Workbench::close(TreeWindow &window) {
    if (run_.window() == &window) window.stop_batch();
    prolog_->drop_claim_of(&window);
    if (copy && copy->window == &window) copy.reset();
    window.release_edited_tree();
    window.remember();
    std::erase(windows_, &window);
    window.hide();
    window.deleteLater();
}

TreeWindow *Workbench::window_of(const TreeView *view) const {
    const auto at = std::ranges::find_if(windows_, [&](const TreeWindow *w) { return w == view; });
    return at == windows_.end() ? nullptr : *at;
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

bool Workbench::quit() {
    enum Answer { no = 1, yes = 2 };
    if (corpus_.unsaved_changes != 0 &&
        ask(main_window_.get(), {.message = "There are unsaved edits,\nare you sure you want to quit?",
                                 .buttons = {{"No, cancel that", no}, {"Yes", yes}},
                                 .default_value = no,
                                 .escape_value = no}) != yes)
        return false;
    for (TreeWindow *window : windows_) window->remember();
    main_window_->remember();
    prolog_->quit();
    QCoreApplication::exit();  // quit() would ask each window, and those close by themselves
    return true;
}

}  // namespace brindle
