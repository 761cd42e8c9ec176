#include "windows/workbench_driver.hpp"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "corpus/readtrees.hpp"
#include "model/text.hpp"
#include "stats/tables.hpp"

namespace brindle::windows {

const char *const small_corpus = R"(

tree #1
*
(
 (S|s(d1,d2)
    (NP|john NNP/John)
    (VP|sleeps VBZ/sleeps
        (PP IN/on
            (NP DT/the NN/table)))
    ./.))

tree #2
(
 (S
    (NP NNP/Mary)
    (VP VBZ/sees
        (NP NNP/John))
    ./.))

tree #3
*
(
 (S|s(d1,d2)
    (NP|mary NNP/Mary)
    (VP|walks VBZ/walks)))
)";

namespace {

std::string make_directory() {
    std::string name = (std::filesystem::temp_directory_path() / "workbench-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary directory");
    return name;
}

}  // namespace

Workbench::Workbench(const std::string &corpus, const std::string &name, std::vector<std::string> options,
                     const std::string &prolog, const std::string &companion)
    : directory_(make_directory()), name_(name) {
    std::ofstream(path(name), std::ios::binary) << corpus;
    std::vector<std::string> command{BRINDLE_PROGRAM};
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(name);
    namespace fs = std::filesystem;
    if (!companion.empty()) fs::copy_file(companion, path(fs::path(companion).filename()));
    const std::vector<std::string> environment{
        "LC_ALL=C.UTF-8", "BRINDLE_SCALE=1", "BRINDLE_PROLOG=" + prolog,
        "LSAN_OPTIONS=suppressions=" BRINDLE_SOURCE_DIR "/tests/windows/lsan.supp:print_suppressions=0"};
    gui_ = std::make_unique<Gui>(command, GuiOptions{true, environment, directory_});
}

Workbench::~Workbench() {
    gui_.reset();
    std::filesystem::remove_all(directory_);
}

void Workbench::edit() {
    gui_->press("Edit " + name_);
    gui_->wait_frame(name_);
}

void Workbench::choose_at(const std::string &path, const std::vector<std::string> &entries) {
    gui_->click_node(path, 3);
    gui_->choose(entries);
}

void Workbench::prefer(const std::vector<std::string> &entries) {
    for (const ShownItem &item : gui_->map().items)
        if (item.kind == "canvas") gui_->click_at(item.area.x + item.area.w - 4, item.area.y + 4, 3);
    gui_->choose(entries);
}

void Workbench::type_tag(const std::string &path, const std::string &tag) {
    const ShownNode *node = gui_->map().node(path);
    const std::string category = node ? node->category : "";
    choose_at(path, {"edit"});
    gui_->wait_focus(category);
    gui_->fill("Semantic tag:", tag);
    gui_->key("Return");
    gui_->wait_gone(category);
}

std::string Workbench::tag(const std::string &path) {
    const ShownNode *node = gui_->map().node(path);
    return node ? node->tag : "no such node";
}

std::string Workbench::selected() {
    std::string paths;
    for (const ShownNode &node : gui_->map().nodes)
        if (node.selected) paths += (paths.empty() ? "" : " ") + node.path;
    return paths;
}

std::string Workbench::tree() {
    return gui_->value("slider", "Tree #");
}

void Workbench::turn_to(int tree) {
    type_into_slider("Tree #", std::to_string(tree));
    gui_->key("Return");
}

void Workbench::type_into_slider(const std::string &label, const std::string &number) {
    const Area slider = gui_->map().item("slider", label)->area;
    gui_->click_at(slider.x + 10, slider.middle_y());
    gui_->key("ctrl+a");
    gui_->type(number);
}

void Workbench::answer(const std::string &line, const std::string &button) {
    gui_->wait_until("notice: " + line, [&](const UiMap &map) {
        return !map.frames.empty() && map.has_line(map.frames.back().title, line);
    });
    gui_->press(button);
}

void Workbench::wait_footer(const std::string &text) {
    gui_->wait_until("footer: " + text, [&](const UiMap &map) {
        const ShownFrame *frame = map.frame(name_);
        return frame && frame->footer == text;
    });
}

std::string Workbench::file(const std::string &name) const {
    std::ifstream in(path(name), std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void Workbench::read(const std::string &name) const {
    reset_forest();
    tables_init();
    read_forest(file(name), "");
}

}  // namespace brindle::windows
