#pragma once
// What all windows share: the corpus, the main window with its Prolog, the open tree windows, the copy that
// is pending, the run that goes on.
#include <memory>
#include <optional>
#include <vector>

#include "edit/change.hpp"
#include "edit/history.hpp"
#include "model/corpus.hpp"
#include "model/tree_view.hpp"
#include "prolog/session.hpp"
#include "windows/run.hpp"
#include "windows/settings.hpp"

namespace brindle {

class MainWindow;
class PrologWindowHost;
class TreeWindow;

// The pending copy of a tag to a node.
struct CopyRequest {
    Node *node;  // that is to receive a tag
    TreeWindow *window;
};

class Workbench final : private ChangeListener {
  public:
    // The corpus has been read. Nothing is shown yet.
    explicit Workbench(Corpus &corpus);
    ~Workbench() override;
    Workbench(const Workbench &) = delete;
    Workbench &operator=(const Workbench &) = delete;

    Corpus &corpus() { return corpus_; }
    MainWindow &main_window() { return *main_window_; }
    PrologSession &prolog() { return *prolog_; }
    Settings &settings() { return settings_; }
    CurrentRun &run() { return run_; }

    // Starts the Prolog child. False: no process could be started; the reason is on standard error, and the
    // query field stays without input.
    bool start_prolog();

    // Opens one more tree window, on tree 1.
    TreeWindow &open_tree_window();
    // Closes the window: ends its run, its copy, its claim on an answer and its syntax editor's lock. It is
    // destroyed when the callbacks that may still use it have returned.
    void close(TreeWindow &window);
    const std::vector<TreeWindow *> &tree_windows() const { return windows_; }
    // The open window behind a TreeView; null for null and for a window that has been closed.
    TreeWindow *window_of(const TreeView *view) const;

    // All windows lay out and draw again when the loop is next idle: what has changed may be in the tree that
    // one of them shows.
    void repaint_all();
    // Ends the batch that goes on in one of the windows, if one does.
    void stop_batch();
    // Marks all windows busy or idle, but for notices.
    void set_all_busy(bool busy);
    // The corpus has got a new name.
    void show_corpus_name();
    // The session's undo and redo, a command at a time.
    History &history() { return history_; }
    // "Undo", or "Redo": shows in the window where it happened. What works on a node is closed before, as the
    // node may go; a syntax editor that is open forbids it.
    void undo_or_redo(TreeWindow &window, bool undo);
    // "Quit": asks if there are unsaved changes. False: the user does not want to.
    bool quit();

    // The copy mode: a tag is copied from the node that is clicked, in any tree window, to the node on which
    // "copy" was chosen. Only one copy is pending; none: no value.
    std::optional<CopyRequest> copy;
    void end_copy();  // with its footer

  private:
    void changed(const Corpus &corpus, const Change &change) override;

    Corpus &corpus_;
    History history_;
    Settings settings_;
    CurrentRun run_;
    std::unique_ptr<MainWindow> main_window_;
    std::unique_ptr<PrologWindowHost> host_;
    std::unique_ptr<PrologSession> prolog_;
    std::vector<TreeWindow *> windows_;  // in the order of their opening
};

}  // namespace brindle
