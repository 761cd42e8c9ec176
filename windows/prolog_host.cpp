#include "windows/prolog_host.hpp"

#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "drawing/text.hpp"
#include "windows/main_window.hpp"
#include "windows/notice.hpp"
#include "windows/output_window.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

// It may be dropped in its own signal: it lives, with what it calls, until the loop is back.
void PrologWindowHost::Drop::operator()(QSocketNotifier *notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
}

PrologWindowHost::~PrologWindowHost() {
    while (!children_.empty()) unwatch_child(children_.begin()->first);
}

PrologWindowHost::Notifier PrologWindowHost::notifier(int descriptor, std::function<void()> readable) {
    Notifier notifier(new QSocketNotifier(descriptor, QSocketNotifier::Read));
    QObject::connect(notifier.get(), &QSocketNotifier::activated, std::move(readable));
    return notifier;
}

void PrologWindowHost::watch_input(int fd, std::function<void(int)> handler) {
    unwatch_input(fd);
    inputs_[fd] = notifier(fd, [handler = std::move(handler), fd] { handler(fd); });
}

void PrologWindowHost::unwatch_input(int fd) {
    inputs_.erase(fd);
}

void PrologWindowHost::watch_child(pid_t pid, std::function<void(pid_t, int)> handler) {
    unwatch_child(pid);
    const int descriptor = static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
    const auto ended_or_not = [this, handler = std::move(handler), pid] {
        int status = 0;
        const pid_t ended = waitpid(pid, &status, WNOHANG);
        if (ended == 0) return;
        unwatch_child(pid);
        handler(pid, ended == pid ? status : 0);
    };
    children_[pid] = {descriptor, notifier(descriptor, ended_or_not)};
}

void PrologWindowHost::unwatch_child(pid_t pid) {
    const auto at = children_.find(pid);
    if (at == children_.end()) return;
    close(at->second.descriptor);
    children_.erase(at);
}

void PrologWindowHost::after(double seconds, std::function<void()> f) {
    QTimer::singleShot(static_cast<int>(seconds * 1000), qApp, std::move(f));
}

void PrologWindowHost::set_query_label(std::string_view label) {
    workbench_.main_window().set_query_label(label);
}
void PrologWindowHost::set_query_active(bool active) {
    workbench_.main_window().query().setEnabled(active);
}
void PrologWindowHost::set_query_value(std::string_view value) {
    workbench_.main_window().query().setText(to_qstring(value));
}
void PrologWindowHost::insert_output(std::string_view bytes) {
    workbench_.main_window().output().append_text(bytes);
}

void PrologWindowHost::show_foot(TreeView *view, std::string_view text) {
    TreeWindow *window = workbench_.window_of(view);
    if (window)
        window->set_footer(text);
    else if (!view)
        brindle::set_footer(workbench_.main_window(), text);
}

void PrologWindowHost::notice(std::string_view text) {
    tell(&workbench_.main_window(), text, true);
}

void PrologWindowHost::notice_at_query(std::string_view text) {
    QLineEdit &query = workbench_.main_window().query();
    ask(&workbench_.main_window(), {.message = std::string(text), .silent = true},
        query.mapToGlobal(QPoint(10, query.height() / 2)));
}

void PrologWindowHost::prompt_at_node(Node *node, std::string_view text, TreeView *view) {
    if (TreeWindow *window = workbench_.window_of(view))
        window->tell_at(node, text, false);
    else
        tell(&workbench_.main_window(), text, false);
}

}  // namespace brindle
