#pragma once
// The main window and Qt's event loop, as the Prolog session needs them.
#include <QSocketNotifier>

#include <map>
#include <memory>

#include "prolog/host.hpp"

namespace brindle {

class Workbench;

class PrologWindowHost final : public PrologHost {
  public:
    explicit PrologWindowHost(Workbench &workbench) : workbench_(workbench) {}
    ~PrologWindowHost() override;

    void watch_input(int fd, std::function<void(int)> handler) override;
    void unwatch_input(int fd) override;
    void watch_child(pid_t pid, std::function<void(pid_t, int)> handler) override;
    void unwatch_child(pid_t pid) override;
    void after(double seconds, std::function<void()> f) override;

    void set_query_label(std::string_view label) override;
    void set_query_active(bool active) override;
    void set_query_value(std::string_view value) override;
    void insert_output(std::string_view bytes) override;
    void show_foot(TreeView *view, std::string_view text) override;
    void notice(std::string_view text) override;
    void notice_at_query(std::string_view text) override;
    void prompt_at_node(Node *node, std::string_view text, TreeView *view) override;

  private:
    struct Drop {
        void operator()(QSocketNotifier *notifier) const;
    };
    using Notifier = std::unique_ptr<QSocketNotifier, Drop>;
    static Notifier notifier(int descriptor, std::function<void()> readable);
    struct Child {
        int descriptor;  // of the process, readable when it has ended
        Notifier notifier;
    };

    Workbench &workbench_;
    std::map<int, Notifier> inputs_;
    std::map<pid_t, Child> children_;
};

}  // namespace brindle
