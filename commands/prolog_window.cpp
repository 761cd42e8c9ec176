#include "commands/prolog_window.hpp"

#include <memory>
#include <utility>

#include "commands/node_runs.hpp"
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "model/forest.hpp"
#include "prolog/child_command.hpp"
#include "prolog/host.hpp"
#include "prolog/pipe.hpp"
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

// The main window and the toolkit's event loop, as the Prolog connection needs them.
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
    void show_query_foot(std::string_view text) override { show_foot(main_frame_, text); }
    void insert_output(std::string_view bytes) override { output_.append(bytes); }
    void notice(std::string_view text) override { ok_notice(tk::place_on(output_), text); }
    void notice_at_query(std::string_view text) override {
        const tk::Box box = query_.box();
        ok_notice(tk::place_at(query_.panel(), {box.x + 10, box.y + 10}), text);
    }

    void go_on_filtering() override { go_on_with_node_run(); }
    void go_on_evaluating() override { go_on_with_node_run(); }
    void stop_batch(TreeView *view) override {
        TreeWindow *tw = open_window(view);
        if (tw) commands.stop_batch(*tw);
    }
    void batch_prompt_at_node(Node *node, std::string_view text, TreeView *view) override {
        brindle::batch_prompt_at_node(node, text, view);
    }

  private:
    tk::Frame &main_frame_;
    tk::TextField &query_;
    tk::TextWindow &output_;
};

std::unique_ptr<WindowHost> host;  // outlives the event loop, in which the child may end

}  // namespace

bool start_prolog_in(tk::Frame &main_frame) {
    host = std::make_unique<WindowHost>(main_frame);
    return start_prolog(*host, default_child(CORPUS));
}

void install_prolog_window(Commands &table) {
    table.commando = [](tk::TextField &query) { commando(query.value()); };
}

}  // namespace brindle
