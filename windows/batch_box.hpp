#pragma once
// "Batch processing": which trees a run takes, and its actions.
#include <QElapsedTimer>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "corpus/formats.hpp"
#include "propose/run.hpp"
#include "propose/selection.hpp"
#include "windows/command_window.hpp"

class QSpinBox;

namespace brindle {

class NodeRun;
enum class NodeRunKind;

class BatchBox final : public CommandWindow {
  public:
    // For a corpus of that many trees.
    BatchBox(TreeWindow &owner, int trees);

    void open_below(const QWidget &below);
    // "Abort", Control-C: ends the run that goes on, and everything takes input again; also a second time.
    void stop();

    // A run in one go, with "n of m" behind the footer's text ("": the footer stays). The action gets the run
    // and returns the last tree (-1: none), which is shown.
    void run(std::string footer, const std::function<int(Run &)> &action);

    // What its items say.
    SelectionChoice choice() const;

  private:
    void add_range(int trees);
    void add_random_selection(int trees);
    void add_actions();  // batch_actions.cpp
    QPushButton *add_action(const QString &label, std::function<void()> action);

    void recount();
    void move_start(int from);
    void move_end(int to);
    void set_random(bool random);
    void set_running(bool running);
    void begin();
    void show_progress(const std::string &text);

    void add_results_requestor();
    void propose_and_evaluate_into(const std::string &name);
    void write_selection(const std::string &name, CorpusFormat format);
    void start_node_run(NodeRunKind kind, bool roots_only);
    void show_answer(const Node *node, std::string_view text);

    QComboBox *types_, *selection_;
    NumberSlider *from_, *to_, *size_;
    QLabel *amount_;
    QSpinBox *seed_;
    QList<QWidget *> random_items_;  // what a random selection alone needs
    QPushButton *evaluate_, *write_, *abort_;
    CommandWindow *results_;  // "Save evaluation results in:"
    std::vector<int> trees_;  // of the run, in the order of processing
    int taken_ = 0;
    QElapsedTimer shown_;  // since the footer was written
};

}  // namespace brindle
