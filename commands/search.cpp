// "Search & Replace".
#include "display/search.hpp"

#include "commands/subjects.hpp"
#include "gui/current_run.hpp"
#include "gui/dialogs.hpp"
#include "gui/drawing.hpp"
#include "gui/the_corpus.hpp"
#include "toolkit/notifier.hpp"

namespace brindle {

namespace {

// The answers of the notices at a match.
enum Answer : int { GO_BACK = 1, STOP = 2, AGAIN = 3, NO = 5, YES = 115 };

// The search box steps aside when it hides the match: to whichever side of it has room.
void uncover(const Node *node, TreeWindow &tw) {
    constexpr int margin = 120;  // half a label, and air
    const tk::Frame &box = *tw.search_box;
    if (!box.shown()) return;
    const tk::Point match = tw.canvas->to_screen(place_of(node, tw));
    const tk::Point at = box.position();
    const tk::Size size = box.size();
    if (match.x < at.x - margin / 2 || match.x > at.x + size.w + margin / 2) return;
    if (match.y < at.y - margin / 2 || match.y > at.y + size.h + margin / 2) return;
    const int left = match.x - margin - size.w;
    tw.search_box->set_position({left >= 0 ? left : match.x + margin, at.y});
}

int ask_at(const Node *node, const char *text, std::vector<tk::NoticeButton> buttons, TreeWindow &tw,
           std::vector<tk::NoticeTrigger> triggers = {}) {
    tk::NoticeSpec spec;
    spec.message = {text};
    spec.buttons = std::move(buttons);
    spec.triggers = std::move(triggers);
    spec.escape_value = STOP;
    spec.silent = true;
    return notice_at_node(node, spec, tw);
}

int search_prompt(const Node *node, TreeWindow &tw) {
    return ask_at(node, "Found", {{"Again", AGAIN}, {"Ok", STOP}, {"Go back", GO_BACK}}, tw);
}

int replace_prompt(const Node *node, TreeWindow &tw) {
    return ask_at(node, "Replace?", {{"Yes", YES}, {"No", NO}, {"Cancel", STOP}}, tw, {{'n', NO}});
}

int again_prompt(const Node *node, TreeWindow &tw) {
    return ask_at(node, "Search again?", {{"Yes", AGAIN}, {"No", STOP}, {"Go back", GO_BACK}}, tw);
}

LabelKind term_or_nonterm(const std::string &question, TreeWindow &tw) {
    tk::NoticeSpec spec;
    spec.place = tk::place_on(tw.search_box->panel());
    spec.message = {question};
    spec.buttons = {{"Terminal", static_cast<int>(LabelKind::TERM)},
                    {"Non-terminal", static_cast<int>(LabelKind::NONTERM)}};
    spec.silent = true;
    return static_cast<LabelKind>(tk::notice_prompt(spec));
}

// One press of an action button, from its first tree to its end.
class SearchCommand {
  public:
    SearchCommand(TreeWindow &tw, SearchAction action)
        : tw_(tw),
          action_(action),
          request_{tw.search_syn->value(), tw.search_lex->value(), tw.search_sem->value(),
                   tw.complete_labels->value()},
          choice_(static_cast<ReplaceChoice>(tw.replace_choice->value())),
          with_(tw.replace_with->value()),
          prompts_(tw.prompt_at_replace->value()) {}

    void run() {
        work();
        be_idle();
        // A replacement without prompts shows nothing on its way; the window ends on the tree of the last
        // one.
        if (last_replaced_ >= 0 && open_window(&tw_)) show_nr(last_replaced_, tw_);
    }

  private:
    void work() {
        if (action_ != SearchAction::search && refused(cannot_replace(request_, choice_, with_))) return;
        Addresses addresses = init_adresses(the_corpus(), request_, [this](const std::string &question) {
            return term_or_nonterm(question, tw_);
        });
        for (const SearchMessage &message : addresses.messages)
            prompt(*tw_.notice, message.text, message.silent);
        if (!addresses.pattern) return;
        const int shown_before = tw_.tree_number;
        CorpusSearch search(the_corpus(), std::move(*addresses.pattern),
                            tw_.start_here->value() ? shown_before : 0, [this] { return may_go_on(); });
        while (const auto match = next(search)) {
            const int answer = at_match(*match);
            if (!open_window(&tw_)) return;
            if (answer == GO_BACK) show_nr(shown_before, tw_);
            if (answer == GO_BACK || answer == STOP) return;
        }
        if (!stopped_ && !works_silently()) prompt(*tw_.notice, "Not found", true);
    }

    bool refused(const std::optional<std::string> &reason) {
        if (reason) prompt(*tw_.notice, *reason, false);
        return reason.has_value();
    }

    // Nothing is shown between two matches.
    bool works_silently() const { return action_ == SearchAction::replace_all && !prompts_; }

    // The next match. On a long way to it all frames are busy, and Control-C ends the search.
    std::optional<CorpusSearch::Match> next(CorpusSearch &search) {
        if (works_silently() && !may_go_on()) return std::nullopt;
        auto match = search.next();
        if (!works_silently()) be_idle();
        return match;
    }

    bool may_go_on() {
        if (!busy_) all_frames_busy(*tw_.main_frame, busy_ = true);
        auto before = tk::set_on_interrupt([this] { stopped_ = true; });
        dispatch_in_run();
        tk::set_on_interrupt(std::move(before));
        return !stopped_;
    }

    void be_idle() {
        if (busy_) all_frames_busy(*tw_.main_frame, busy_ = false);
    }

    // Shows the match and does what the button asks for. Returns the answer that decides how to go on.
    int at_match(const CorpusSearch::Match &match) {
        const bool silently = works_silently();
        if (!silently) {
            show_nr(match.tree, tw_);
            const tk::Point at = place_of(match.node, tw_);
            make_visible(at.x, at.y, tw_);
            uncover(match.node, tw_);
        }
        if (action_ == SearchAction::search) return search_prompt(match.node, tw_);
        int answer = prompts_ ? replace_prompt(match.node, tw_) : static_cast<int>(YES);
        if (!open_window(&tw_)) return STOP;
        if (answer == YES && !replace(match, silently)) return STOP;
        if (action_ == SearchAction::replace && answer != STOP) answer = again_prompt(match.node, tw_);
        return answer;
    }

    bool replace(const CorpusSearch::Match &match, bool silently) {
        const auto reason = replace_at(the_corpus(), match.node, request_, choice_, with_);
        if (silently) last_replaced_ = match.tree;
        if (reason) be_idle();
        return !refused(reason);
    }

    TreeWindow &tw_;
    SearchAction action_;
    SearchRequest request_;
    ReplaceChoice choice_;
    std::string with_;
    bool prompts_;
    bool busy_ = false;
    bool stopped_ = false;
    int last_replaced_ = -1;
};

void search_win(TreeWindow &tw, tk::Button &button) {
    position_frame_from_button(*tw.search_box, button, tw);
}

void search_node(TreeWindow &tw, tk::Button &button) {
    SearchCommand(tw, static_cast<SearchAction>(number_of(button, Key::kind))).run();
}

}  // namespace

void install_search(Commands &table) {
    table.search_win = search_win;
    table.search_node = search_node;
}

}  // namespace brindle
