// What the buttons of "Search & Replace" do.
#include "windows/search_box.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

// The answers of the notices at a match.
enum Answer : int { go_back = 1, stop = 2, again = 3, no = 5, yes = 115 };

class SearchCommand {
  public:
    SearchCommand(TreeWindow &window, SearchAction action)
        : window_(window),
          workbench_(window.workbench()),
          action_(action),
          request_(window.search_box->request()),
          choice_(window.search_box->replace_choice()),
          with_(window.search_box->replace_with()),
          prompts_(window.search_box->prompts()) {}

    void run() {
        work();
        be_idle();
        // A replacement without prompts shows nothing on its way; the window ends on the tree of the last
        // one.
        if (last_replaced_ >= 0 && is_open()) window_.show_tree(last_replaced_);
    }

  private:
    bool is_open() const { return workbench_.window_of(&window_) != nullptr; }

    void work() {
        if (action_ != SearchAction::search && refused(cannot_replace(request_, choice_, with_))) return;
        Addresses addresses = init_adresses(window_.corpus(), request_, [this](const std::string &question) {
            return term_or_nonterm(question);
        });
        for (const SearchMessage &message : addresses.messages) window_.tell(message.text, message.silent);
        if (!addresses.pattern) return;
        const int shown_before = window_.tree_number();
        CorpusSearch search(window_.corpus(), std::move(*addresses.pattern),
                            window_.search_box->starts_here() ? shown_before : 0,
                            [this] { return may_go_on(); });
        while (const auto match = next(search)) {
            const int answer = at_match(*match);
            if (!is_open()) return;
            if (answer == go_back) window_.show_tree(shown_before);
            if (answer == go_back || answer == stop) return;
        }
        if (!stopped_ && !works_silently()) window_.tell("Not found", true);
    }

    bool refused(const std::optional<std::string> &reason) {
        if (reason) window_.tell(*reason, false);
        return reason.has_value();
    }

    // Nothing is shown between two matches.
    bool works_silently() const { return action_ == SearchAction::replace_all && !prompts_; }

    // The next match. On a long way to it all windows are busy, and Control-C ends the search.
    std::optional<CorpusSearch::Match> next(CorpusSearch &search) {
        if (works_silently() && !may_go_on()) return std::nullopt;
        auto match = search.next();
        if (!works_silently()) be_idle();
        return match;
    }

    bool may_go_on() {
        CurrentRun &run = workbench_.run();
        if (!busy_) {
            workbench_.set_all_busy(busy_ = true);
            before_ = std::exchange(run.on_interrupt, [this] { stopped_ = true; });
        }
        run.dispatch();
        return !stopped_;
    }

    void be_idle() {
        if (!busy_) return;
        workbench_.set_all_busy(busy_ = false);
        workbench_.run().on_interrupt = std::move(before_);
    }

    // Shows the match and does what the button asks for. Returns the answer that decides how to go on.
    int at_match(const CorpusSearch::Match &match) {
        const bool silently = works_silently();
        if (!silently) {
            window_.show_tree(match.tree);
            window_.show();
            window_.canvas().make_visible(match.node);
            window_.search_box->uncover(window_.canvas().screen_place_of(match.node));
        }
        if (action_ == SearchAction::search)
            return ask_at(match.node, "Found", {{"Again", again}, {"Ok", stop}, {"Go back", go_back}});
        int answer = yes;
        if (prompts_)
            answer = ask_at(match.node, "Replace?", {{"Yes", yes}, {"No", no}, {"Cancel", stop}},
                            {{QKeyCombination(Qt::Key_N), no}});
        if (!is_open()) return stop;
        if (answer == yes && !replace(match, silently)) return stop;
        if (action_ == SearchAction::replace && answer != stop)
            answer =
                ask_at(match.node, "Search again?", {{"Yes", again}, {"No", stop}, {"Go back", go_back}});
        return answer;
    }

    bool replace(const CorpusSearch::Match &match, bool silently) {
        const auto reason = replace_at(window_.corpus(), match.node, request_, choice_, with_);
        if (silently) last_replaced_ = match.tree;
        if (reason) be_idle();
        return !refused(reason);
    }

    int ask_at(const Node *node, const char *text, std::vector<NoticeButton> buttons,
               std::vector<NoticeKey> keys = {}) {
        return window_.ask_at(node, {.message = text,
                                     .buttons = std::move(buttons),
                                     .escape_value = stop,
                                     .keys = std::move(keys),
                                     .silent = true});
    }

    LabelKind term_or_nonterm(const std::string &question) {
        return static_cast<LabelKind>(
            ask(window_.search_box, {.message = question,
                                     .buttons = {{"Terminal", static_cast<int>(LabelKind::TERM)},
                                                 {"Non-terminal", static_cast<int>(LabelKind::NONTERM)}},
                                     .silent = true}));
    }

    TreeWindow &window_;
    Workbench &workbench_;
    SearchAction action_;
    SearchRequest request_;
    ReplaceChoice choice_;
    std::string with_;
    bool prompts_;
    bool busy_ = false;
    bool stopped_ = false;
    int last_replaced_ = -1;
    std::function<void()> before_;  // what Control-C does otherwise
};

}  // namespace

void search(TreeWindow &window, SearchAction action) {
    SearchCommand(window, action).run();
}

}  // namespace brindle
