#pragma once
// The workbench on a corpus of the test's own, worked as a person does.
#include <memory>
#include <string>
#include <vector>

#include "model/corpus.hpp"
#include "stats/statistics.hpp"
#include "windows/gui.hpp"

namespace brindle::windows {

// Three trees; the first and the third are checked.
extern const char *const small_corpus;

// The trees of the small corpus that many times over, numbered through, as the workbench saves them.
std::string many_trees(int copies);

// Saves a picture of the screen in the folder BRINDLE_PICTURES, where somebody wants to look at it.
class Workbench;
void picture(Workbench &w, const std::string &name);

class Workbench {
  public:
    // Writes the corpus to the file `name` in a directory of its own and starts the workbench there. The
    // command of the Prolog child: "" for the one it finds by itself; `companion` is copied beside the
    // corpus.
    explicit Workbench(const std::string &corpus = small_corpus, const std::string &name = "small.trees",
                       std::vector<std::string> options = {}, const std::string &prolog = "cat",
                       const std::string &companion = {});
    ~Workbench();

    // Presses "Edit" and waits for one more tree window, which is then the window in hand. Its handle.
    std::string edit();
    // The tree window that the functions below are about.
    void take(const std::string &handle) { in_hand_ = handle; }
    void press(const std::string &label) { gui_->press(label, in_hand_); }
    void click_node(const std::string &path, unsigned button = 1, const std::string &modifier = {}) {
        gui_->click_node(path, button, modifier, in_hand_);
    }
    std::string value(const std::string &kind, const std::string &label) {
        return gui_->value(kind, label, in_hand_);
    }
    const ShownNode *node(const std::string &path) { return gui_->map().node(path, in_hand_); }
    // The rows of the selector that "select" shows at a node, which is closed again.
    std::string rows_offered(const std::string &path);
    // Opens the batch box of the window in hand, and moves it to where it does not hide that window.
    void open_batch_box();
    // Opens the menu of a node, of which only visible ones can be clicked, and chooses the entry.
    void choose_at(const std::string &path, const std::vector<std::string> &entries);
    // Opens "Preferences" beside the tree and chooses.
    void prefer(const std::vector<std::string> &entries);
    // Types a tag through the menu of a node.
    void type_tag(const std::string &path, const std::string &tag);
    // The tag of a node in view.
    std::string tag(const std::string &path);
    // The paths of the selected nodes in view, in document order, with a blank between them.
    std::string selected();
    // The number in the "Tree #" field.
    std::string tree();
    // Types a number into it.
    void turn_to(int tree);
    // Types over the field of the first slider of that label.
    void type_into_slider(const std::string &label, const std::string &number);
    // Answers the notice that is shown, which must hold the line, with the button.
    void answer(const std::string &line, const std::string &button = "Ok");
    // Waits for the tree window's footer.
    void wait_footer(const std::string &text);

    std::string path(const std::string &file) const { return directory_ + "/" + file; }
    std::string file(const std::string &name) const;  // its contents; "" when there is none
    // What was saved, read with the program's own reader.
    std::unique_ptr<Corpus> read(const std::string &name) const;

    Gui &gui() { return *gui_; }
    const std::string &name() const { return name_; }

  private:
    std::string directory_;
    std::string name_;
    std::string in_hand_;  // "": the topmost
    std::unique_ptr<Gui> gui_;
};

}  // namespace brindle::windows
