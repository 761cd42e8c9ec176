// What the buttons of "Search & Replace" show and ask.
#include "display/search_command.hpp"
#include "edit/history.hpp"
#include "windows/search_box.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

class SearchDialogue final : public SearchHost {
  public:
    explicit SearchDialogue(TreeWindow &window) : window_(window), workbench_(window.workbench()) {}

    bool is_open() const { return workbench_.window_of(&window_) != nullptr; }

    void tell(std::string_view message, bool silent) override { window_.tell(message, silent); }

    LabelKind term_or_nonterm(const std::string &question) override {
        return static_cast<LabelKind>(
            ask(window_.search_box, {.message = question,
                                     .buttons = {{"Terminal", static_cast<int>(LabelKind::TERM)},
                                                 {"Non-terminal", static_cast<int>(LabelKind::NONTERM)}},
                                     .silent = true}));
    }

    void show(const CorpusSearch::Match &match) override {
        window_.show_tree(match.tree);
        window_.show();
        window_.canvas().make_visible(match.node);
        window_.search_box->uncover(window_.canvas().screen_place_of(match.node));
    }

    Answer ask_at(const Node *node, Question question) override {
        switch (question) {
            case Question::found:
                return ask_at(node, "Found", {{"Again", again}, {"Ok", stop}, {"Go back", go_back}});
            case Question::replace:
                return ask_at(node, "Replace?", {{"Yes", yes}, {"No", no}, {"Cancel", stop}},
                              {{QKeyCombination(Qt::Key_N), no}});
            default:
                return ask_at(node, "Search again?", {{"Yes", again}, {"No", stop}, {"Go back", go_back}});
        }
    }

    // On a long way all windows are busy, and Control-C ends the search.
    bool may_go_on() override {
        CurrentRun &run = workbench_.run();
        if (!busy_) {
            workbench_.set_all_busy(busy_ = true);
            before_ = std::exchange(run.on_interrupt, [this] { stopped_ = true; });
        }
        run.dispatch();
        return !stopped_ && is_open();
    }

    void arrived() override {
        if (!busy_) return;
        workbench_.set_all_busy(busy_ = false);
        workbench_.run().on_interrupt = std::move(before_);
    }

  private:
    Answer ask_at(const Node *node, const char *text, std::vector<NoticeButton> buttons,
                  std::vector<NoticeKey> keys = {}) {
        const int answer = window_.ask_at(node, {.message = text,
                                                 .buttons = std::move(buttons),
                                                 .escape_value = stop,
                                                 .keys = std::move(keys),
                                                 .silent = true});
        return is_open() ? static_cast<Answer>(answer) : stop;
    }

    TreeWindow &window_;
    Workbench &workbench_;
    bool busy_ = false;
    bool stopped_ = false;
    std::function<void()> before_;  // what Control-C does otherwise
};

}  // namespace

void search(TreeWindow &window, SearchAction action) {
    const HistoryStep step(window.corpus(), action == SearchAction::replace_all ? "Replace all" : "Replace");
    SearchDialogue dialogue(window);
    const int tree = run_search(window.corpus(), window.search_box->command(action), dialogue);
    dialogue.arrived();
    if (tree >= 0 && dialogue.is_open()) window.show_tree(tree);
}

}  // namespace brindle
