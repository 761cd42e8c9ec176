#include "commands/prolog_window.hpp"

#include <utility>

#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "prolog/child_command.hpp"
#include "prolog/host.hpp"
#include "toolkit/notifier.hpp"
#include "toolkit/text_window.hpp"

namespace brindle {

namespace {

void ok_notice(tk::NoticePlace place, std::string_view text) {
    tk::NoticeSpec spec;
    spec.place = place;
    spec.message = {std::string(text)};
    spec.buttons = {{"Ok", 1}};
    spec.silent = true;
    tk::notice_prompt(spec);
}

// The main window and the toolkit's event loop, as the Prolog session needs them.
class WindowHost final : public PrologHost {
  public:
    explicit WindowHost(tk::Frame &main_frame)
        : main_frame_(main_frame), query_(query_item(main_frame)), output_(output_window(main_frame)) {}

    void watch_input(int fd, std::function<void(int)> handler) override {
        tk::set_input_handler(fd, std::move(handler));
    }
    void unwatch_input(int fd) override { tk::clear_input_handler(fd); }
    void watch_child(pid_t pid, std::function<void(pid_t, int)> handler) override {
        tk::set_child_handler(pid, std::move(handler));
    }
    void unwatch_child(pid_t pid) override { tk::clear_child_handler(pid); }
    void after(double seconds, std::function<void()> f) override { tk::add_timer(seconds, std::move(f)); }

    void set_query_label(std::string_view label) override { query_.set_label(label); }
    void set_query_active(bool active) override { query_.set_inactive(!active); }
    void set_query_value(std::string_view value) override { query_.set_value(value); }
    void insert_output(std::string_view bytes) override { output_.append(bytes); }
    void show_foot(TreeView *view, std::string_view text) override {
        const TreeWindow *tw = open_window(view);
        if (!view || tw) brindle::show_foot(tw ? *tw->frame : main_frame_, text);
    }
    void notice(std::string_view text) override { ok_notice(tk::place_on(output_), text); }
    void notice_at_query(std::string_view text) override {
        const tk::Box box = query_.box();
        ok_notice(tk::place_at(query_.panel(), {box.x + 10, box.y + 10}), text);
    }
    void prompt_at_node(Node *node, std::string_view text, TreeView *view) override {
        if (TreeWindow *tw = open_window(view)) return brindle::prompt_at_node(node, text, *tw, false);
        tk::Notice notice(main_frame_);
        prompt(notice, text, false);
    }

  private:
    tk::Frame &main_frame_;
    tk::TextField &query_;
    tk::TextWindow &output_;
};

MainProlog *main_prolog = nullptr;  // set while it exists

}  // namespace

MainProlog::MainProlog(tk::Frame &main_frame)
    : host_(std::make_unique<WindowHost>(main_frame)), session_(*host_, the_corpus()) {
    main_prolog = this;
}

MainProlog::~MainProlog() {
    main_prolog = nullptr;
}

bool MainProlog::start() {
    return session_.start(default_child(the_corpus().name));
}

PrologSession &the_prolog() {
    return main_prolog->session_;
}

void install_prolog_window(Commands &table) {
    table.commando = [](tk::TextField &query) { the_prolog().type_query(query.value()); };
}

}  // namespace brindle
