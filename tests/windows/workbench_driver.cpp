#include "windows/workbench_driver.hpp"

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "corpus/reader.hpp"

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

// Several windows find room on the screen side by side when a person has made them so large before.
void remember_sizes(const std::string &state) {
    std::filesystem::create_directories(state + "/brindle");
    std::ofstream(state + "/brindle/windows.ini") << "[size]\ntree=@Size(525 560)\n";
}

}  // namespace

std::string many_trees(int copies) {
    constexpr std::string_view head = "tree #";
    const std::string_view corpus = small_corpus;
    std::string text;
    int tree = 0;
    for (int copy = 0; copy < copies; ++copy) {
        std::size_t at = copy == 0 ? 0 : 1;  // a newline ends it, another begins it
        for (auto found = corpus.find(head); found != corpus.npos; found = corpus.find(head, at)) {
            text.append(corpus.substr(at, found - at)).append(head).append(std::to_string(++tree));
            at = corpus.find('\n', found);
        }
        text.append(corpus.substr(at));
    }
    return text;
}

void picture(Workbench &w, const std::string &name) {
    if (const char *folder = std::getenv("BRINDLE_PICTURES"))
        w.gui().screenshot(std::string(folder) + "/" + name);
}

Workbench::Workbench(const std::string &corpus, const std::string &name, std::vector<std::string> options,
                     const std::string &prolog, const std::string &companion)
    : directory_(make_directory()), name_(name) {
    std::ofstream(path(name), std::ios::binary) << corpus;
    std::vector<std::string> command{BRINDLE_PROGRAM};
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(name);
    namespace fs = std::filesystem;
    if (!companion.empty()) fs::copy_file(companion, path(fs::path(companion).filename()));
    remember_sizes(path(".state"));
    const std::vector<std::string> environment{
        "LC_ALL=C.UTF-8", "BRINDLE_SCALE=1", "BRINDLE_PROLOG=" + prolog, "XDG_STATE_HOME=" + path(".state")};
    const bool iconic = std::ranges::count(options, "-iconic") > 0;
    gui_ = std::make_unique<Gui>(command, GuiOptions{true, environment, directory_, iconic});
}

Workbench::~Workbench() {
    gui_.reset();
    std::filesystem::remove_all(directory_);
}

std::string Workbench::edit() {
    std::set<int> before;
    for (const ShownFrame &frame : gui_->map().frames) before.insert(frame.id);
    gui_->press("Edit " + name_);
    const auto is_new = [&](const ShownFrame &frame) {
        return frame.title == name_ && !before.contains(frame.id);
    };
    const UiMap &map = gui_->wait_until(
        "new tree window", [&](const UiMap &m) { return std::ranges::any_of(m.frames, is_new); });
    return in_hand_ = std::ranges::find_if(map.frames, is_new)->handle();
}

void Workbench::open_batch_box() {
    press("Batch");
    gui_->wait_focus("Batch processing");
    constexpr int beside = 732;
    gui_->server().move_window("Batch processing", beside, 4);
    gui_->wait_until("box beside the window",
                     [](const UiMap &map) { return map.frame("Batch processing")->area.x >= beside; });
}

void Workbench::choose_at(const std::string &path, const std::vector<std::string> &entries) {
    click_node(path, 3);
    gui_->choose(entries);
}

void Workbench::prefer(const std::vector<std::string> &entries) {
    gui_->raise(in_hand_);
    const Area canvas = gui_->map().item("canvas", "", in_hand_)->area;
    gui_->click_at(canvas.x + canvas.w - 4, canvas.y + 4, 3);
    gui_->choose(entries);
}

void Workbench::type_tag(const std::string &path, const std::string &tag) {
    const ShownNode *at = node(path);
    const std::string category = at ? at->category : "";
    choose_at(path, {"edit"});
    gui_->wait_focus(category);
    gui_->fill("Semantic tag:", tag);
    gui_->key("Return");
    gui_->wait_gone(category);
}

std::string Workbench::tag(const std::string &path) {
    const ShownNode *at = node(path);
    return at ? at->tag : "no such node";
}

std::string Workbench::selected() {
    std::string paths;
    const UiMap &map = gui_->map();
    const ShownFrame *frame = map.frame(in_hand_);
    for (const ShownNode &node : map.nodes)
        if (node.selected && frame && node.frame == frame->id)
            paths += (paths.empty() ? "" : " ") + node.path;
    return paths;
}

std::string Workbench::rows_offered(const std::string &path) {
    const ShownNode *at = node(path);
    const std::string category = at ? at->category : "";
    choose_at(path, {"select"});
    gui_->wait_frame(category);
    std::string rows;
    for (const ShownRow &row : gui_->map().rows) rows += (rows.empty() ? "" : " ") + row.text;
    gui_->press("Cancel", category);
    gui_->wait_gone(category);
    return rows;
}

std::string Workbench::tree() {
    return value("slider", "Tree #");
}

void Workbench::turn_to(int tree) {
    type_into_slider("Tree #", std::to_string(tree));
    gui_->key("Return");
}

void Workbench::type_into_slider(const std::string &label, const std::string &number) {
    const UiMap &map = gui_->map();
    const ShownItem *slider = map.item("slider", label, in_hand_);
    if (!slider) slider = map.item("slider", label);
    gui_->click_start(*slider);
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
        const ShownFrame *frame = map.frame(in_hand_);
        return frame && frame->footer == text;
    });
}

std::string Workbench::file(const std::string &name) const {
    std::ifstream in(path(name), std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::unique_ptr<Corpus> Workbench::read(const std::string &name) const {
    auto corpus = std::make_unique<Corpus>();
    corpus->name = name;
    read_trees(*corpus, file(name));
    return corpus;
}

}  // namespace brindle::windows
