// A program that uses every part of the toolkit, for its tests and for looking at. What happens is told in
// the output window, a line each.
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <string>

#include "toolkit/display.hpp"
#include "toolkit/font.hpp"
#include "toolkit/frame.hpp"
#include "toolkit/menu.hpp"
#include "toolkit/notice.hpp"
#include "toolkit/notifier.hpp"

namespace tk = brindle::tk;

namespace {

enum class Key { frame = 100, place = 111 };

struct Demo {
    tk::Frame main{"Demo"};
    tk::TextWindow *output = nullptr;
    tk::Frame *tree = nullptr;
    tk::Canvas *canvas = nullptr;
    tk::Menu menu{"Places"};
    const tk::Font *font = tk::find_font("lucidasans-bold", 2);
    tk::Point marked{-1, -1};
    int repaints = 0;

    void say(const std::string &line) { output->append(line + "\n"); }
};

tk::Box cell(int row, int column) {
    return {40 + column * 150, 40 + row * 90, 60, 24};
}
constexpr int CELLS = 8;

void repaint(Demo &demo, tk::Painter &painter) {
    ++demo.repaints;
    demo.canvas->set_scrollable_size({cell(CELLS, CELLS).x, cell(CELLS, CELLS).y});
    tk::GraphicsContext gc{{0, 0, 0}, {255, 255, 255}, demo.font, 2};
    painter.clear(gc);
    for (int row = 0; row < CELLS; ++row) {
        for (int column = 0; column < CELLS; ++column) {
            const tk::Box box = cell(row, column);
            const tk::Point middle{box.x + box.w / 2, box.y + box.h};
            painter.line(gc, middle, {middle.x + 75, middle.y + 60});
            const bool marked = demo.marked == tk::Point{row, column};
            if (marked) painter.fill(gc, box);
            tk::GraphicsContext text = gc;
            if (marked) std::swap(text.foreground, text.background);
            painter.text(text, {box.x + 3, box.y + 18}, fmt::format("N{}.{}", row, column));
        }
    }
}

std::vector<tk::MapLine> map_lines(const Demo &demo) {
    std::vector<tk::MapLine> lines;
    for (int row = 0; row < CELLS; ++row) {
        for (int column = 0; column < CELLS; ++column) {
            const bool marked = demo.marked == tk::Point{row, column};
            lines.push_back({"node",
                             {fmt::format("{}.{}", row, column), fmt::format("N{}.{}", row, column), "", "",
                              marked ? "selected" : "-"},
                             cell(row, column)});
        }
    }
    return lines;
}

void canvas_event(Demo &demo, const tk::Event &event) {
    if (event.negative) return;
    const tk::Point place{(event.at.y - 40) / 90, (event.at.x - 40) / 150};
    const bool hit = cell(place.x, place.y).contains(event.at);
    switch (event.code) {
        case tk::EVENT_SELECT:
            demo.marked = hit ? place : tk::Point{-1, -1};
            demo.canvas->redraw();
            demo.say(fmt::format("select {}{}{}", hit, event.control ? " control" : "",
                                 event.shift ? " shift" : ""));
            break;
        case tk::EVENT_ADJUST:
            demo.say("adjust");
            if (!hit) break;
            tk::notice_prompt({.place = place_at(*demo.canvas, event.at),
                               .message = {"\nTab:\tseparated\n\x1b\n \t\t\tlines", "of a message"},
                               .buttons = {{"More..", 1}, {"Ok", 0}},
                               .default_value = 0,
                               .escape_value = {},
                               .triggers = {},
                               .silent = true});
            break;
        case tk::EVENT_MENU:
            demo.menu.show(*demo.canvas, event);
            break;
        default:
            demo.say(fmt::format("key {:#x}", event.code));
    }
}

void make_tree_panel(Demo &demo) {
    tk::Panel &panel = demo.tree->add_panel();
    panel.add_button("Close", tk::SAME_ROW, [&demo](tk::Button &) { demo.tree->destroy(); });
    panel.add_button("Next", tk::SAME_ROW, [&demo](tk::Button &) { demo.say("next"); });
    panel.add_button("Previous", tk::SAME_ROW, {}).set_inactive(true);
    panel.add_slider("Tree #", tk::new_row(8), {.min = 1, .max = 1200, .value = 1, .width = 260},
                     [&demo](tk::Slider &, int value) { demo.say(fmt::format("tree {}", value)); });
    panel.add_check_box("Check:", tk::SAME_ROW, false,
                        [&demo](tk::CheckBox &, bool value) { demo.say(fmt::format("check {}", value)); });
}

void make_menu(Demo &demo) {
    const auto tell = [&demo](tk::MenuItem &item) { demo.say("chose " + item.label()); };
    demo.menu.add_item("edit", tell);
    demo.menu.add_item("copy", tell).set_inactive(true);
    tk::Menu &clear = demo.menu.add_submenu("clear");
    clear.add_item("this node", tell);
    tk::Menu &undo = demo.menu.add_submenu("undo");
    undo.add_item("undo last edit", tell);
    tk::Menu &all = undo.add_submenu("undo all edits");
    all.add_item("on this node", tell);
    all.add_item("on this tree", tell);
    tk::Menu &far = demo.menu.add_submenu("far away");
    for (int n = 1; n <= 60; ++n) far.add_item(fmt::format("place {}", n), tell);
}

void make_tree(Demo &demo) {
    demo.tree = &demo.main.add_frame("Tree");
    demo.tree->show_footer(true);
    make_tree_panel(demo);
    demo.canvas = &demo.tree->add_canvas();
    demo.canvas->set_preferred_size({500, 320});
    demo.canvas->set_repaint([&demo](tk::Canvas &, tk::Painter &painter) { repaint(demo, painter); });
    demo.canvas->set_event_callback(
        [&demo](tk::Canvas &, const tk::Event &event) { canvas_event(demo, event); });
    demo.canvas->set_map_lines([&demo] { return map_lines(demo); });
    demo.tree->set_footer("A footer\x1b\n\t\t\tin one line");
    demo.tree->fit();
    demo.tree->show();
}

std::string complete(const std::string &text) {
    return text.starts_with("de") ? "demo.txt" : text;
}

tk::CommandFrame &make_requestor(Demo &demo) {
    tk::CommandFrame &frame = demo.main.add_command_frame("Requestor");
    tk::Panel &panel = frame.panel();
    const auto answer = [&demo, &frame](tk::TextField &field) {
        demo.say("file " + field.value());
        frame.hide();
    };
    tk::TextField &field =
        panel.add_text_field("File name:", tk::first_at(), {.shown = 30, .stored = 12}, answer);
    field.set_completer(complete);
    panel.add_choice("Write in:", tk::new_row(), {"ATIS-format", "DOP-format", "Info-format"},
                     [&demo](tk::Choice &, int value) { demo.say(fmt::format("format {}", value)); });
    panel.add_numeric_field(
        "Seed:", tk::new_row(), {.min = 0, .max = 99, .value = 1, .shown = 4},
        [&demo](tk::NumericField &, int value) { demo.say(fmt::format("seed {}", value)); });
    panel.add_check_box("Complete labels only", tk::new_row(), true,
                        [&demo](tk::CheckBox &, bool value) { demo.say(fmt::format("complete {}", value)); });
    panel.add_button("Ok", tk::new_row(), [&field](tk::Button &) { field.notify(); });
    panel.add_button("Cancel", tk::SAME_ROW, [&demo, &frame](tk::Button &) {
        demo.say("cancelled");
        frame.hide();
    });
    frame.fit();
    return frame;
}

tk::CommandFrame &make_selector(Demo &demo) {
    tk::CommandFrame &frame = demo.main.add_command_frame("Selector");
    tk::Panel &panel = frame.panel();
    panel.add_message("         Existing annotations for this category,", tk::first_at());
    panel.add_message("         ordered by decreasing frequency:", tk::new_row(18, 5));
    tk::List &list = panel.add_list("", tk::new_row(), {.rows = 6, .width = 300});
    for (int n = 0; n < 10; ++n) list.add_row(fmt::format("row {}", n));
    panel.add_button("Ok", tk::new_row(), [&demo, &frame, &list](tk::Button &) {
        demo.say("chose " + (list.selected() < 0 ? "nothing" : list.row(list.selected())));
        frame.hide();
    });
    panel.add_button("Where?", tk::SAME_ROW, [&list](tk::Button &) { list.delete_row(0); });
    panel.add_button("Cancel", tk::SAME_ROW, [&frame](tk::Button &) { frame.hide(); });
    frame.fit();
    return frame;
}

tk::CommandFrame &make_editor(Demo &demo) {
    tk::CommandFrame &frame = demo.main.add_command_frame("Editor");
    tk::Panel &panel = *frame.panels().front();
    tk::TextWindow &text = frame.add_text_window();
    text.set_font(*tk::find_font("courier-normal", 1));
    text.set_text("(S\n    (NP\n        DT/the))");
    panel.add_button("Undo", tk::SAME_ROW, [&text](tk::Button &) { text.undo(); });
    panel.add_button("Redo", tk::SAME_ROW, [&text](tk::Button &) { text.redo(); });
    panel.add_button("Line 2", tk::SAME_ROW, [&text](tk::Button &) { text.goto_line(2); });
    panel.add_button("Cancel", tk::SAME_ROW, [&frame](tk::Button &) { frame.hide(); });
    frame.set_size({400, 300});
    static_cast<void>(demo);
    return frame;
}

// Busy frames ignore input; the batch box, not busy, ends the work that runs between dispatches.
tk::CommandFrame &make_batch(Demo &demo) {
    static bool running = false;
    static int rounds = 0;
    tk::CommandFrame &frame = demo.main.add_command_frame("Batch");
    tk::Panel &panel = frame.panel();
    tk::Button &abort = panel.add_button("Abort", tk::new_row(), [](tk::Button &) { running = false; });
    abort.set_inactive(true);
    panel.add_button("Work", tk::new_row(), [&demo, &abort, &frame](tk::Button &work) {
        demo.main.set_busy(true);
        work.set_inactive(true);
        abort.set_inactive(false);
        for (running = true, rounds = 0; running; ++rounds) tk::notify_dispatch();
        abort.set_inactive(true);
        work.set_inactive(false);
        demo.main.set_busy(false);
        demo.say(fmt::format("worked {}", rounds > 0 && frame.shown()));
    });
    frame.fit();
    return frame;
}

void start_child(Demo &demo) {
    int ends[2];
    if (pipe(ends) != 0) return;
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], 1);
        close(ends[0]);
        close(ends[1]);
        execlp("sh", "sh", "-c", "printf from-child; exit 3", nullptr);
        _exit(127);
    }
    close(ends[1]);
    tk::set_input_handler(ends[0], [&demo](int fd) {
        char buffer[64];
        const ssize_t got = read(fd, buffer, sizeof buffer);
        if (got > 0) return demo.say("read " + std::string(buffer, static_cast<std::size_t>(got)));
        tk::clear_input_handler(fd);
        close(fd);
        demo.say("end of input");
    });
    tk::set_child_handler(
        child, [&demo](pid_t, int status) { demo.say(fmt::format("child ended {}", WEXITSTATUS(status))); });
}

void ask(Demo &demo) {
    const int answer = tk::notice_prompt({.place = place_on(*demo.output),
                                          .message = {"Replace?"},
                                          .buttons = {{"Yes", 115}, {"No", 5}, {"Cancel", 2}},
                                          .default_value = 115,
                                          .escape_value = {},
                                          .triggers = {{'n', 5}, {tk::CODE_CTRL_C, 99}},
                                          .silent = true});
    demo.say(fmt::format("answer {}", answer));
    if (answer != 5) return;
    tk::add_timer(0, [&demo] { demo.say("timer in notice"); });
    const int again = tk::notice_prompt({.place = place_on(demo.main),
                                         .message = {"Sure?"},
                                         .buttons = {},
                                         .default_value = {},
                                         .escape_value = {},
                                         .triggers = {},
                                         .silent = true});
    demo.say(fmt::format("again {}", again));
}

// A message that no screen holds, from a button that grows, and much output.
void ask_at_length(Demo &demo, tk::Button &button) {
    button.set_label(
        "A much longer label than the row has room for in a frame of this width, and longer still");
    std::string message;
    for (int n = 1; n <= 500; ++n) message += fmt::format("line {}\n", n);
    const int answer = tk::notice_prompt({.place = place_at(button),
                                          .message = {message},
                                          .buttons = {},
                                          .default_value = {},
                                          .escape_value = {},
                                          .triggers = {},
                                          .silent = true});
    for (int n = 1; n <= 30000; ++n) demo.say(fmt::format("output line {} of very many lines", n));
    demo.output->append("caf\xC3");
    demo.output->append("\xA9 \xFF\n");
    demo.say(fmt::format("long {} {}", answer, demo.output->text().size() <= (1 << 20)));
}

void make_main(Demo &demo) {
    tk::Panel &panel = demo.main.add_panel();
    panel.add_button("Quit", tk::SAME_ROW, [](tk::Button &) { tk::notify_stop(); });
    panel.add_text_field("query:  ?-", tk::SAME_ROW, {.shown = 20}, [&demo](tk::TextField &field) {
        demo.say("query " + field.value());
        field.set_value("");
    });
    const auto open = [&demo, &panel](const char *label, tk::Place place, tk::Frame &frame) {
        tk::Button &button = panel.add_button(label, place, [](tk::Button &pressed) {
            const tk::Box box = pressed.screen_box();
            pressed.key_as<tk::Frame>(Key::frame)->show_at({box.x, box.y + box.h});
        });
        button.set_key(Key::frame, &frame);
        static_cast<void>(demo);
    };
    panel.add_button("Tree", tk::new_row(8), [&demo](tk::Button &) { make_tree(demo); });
    open("Requestor", tk::SAME_ROW, make_requestor(demo));
    open("Selector", tk::SAME_ROW, make_selector(demo));
    open("Editor", tk::SAME_ROW, make_editor(demo));
    open("Batch", tk::SAME_ROW, make_batch(demo));
    panel.add_button("Ask", tk::new_row(8), [&demo](tk::Button &) { ask(demo); });
    panel.add_button("Long", tk::SAME_ROW, [&demo](tk::Button &button) { ask_at_length(demo, button); });
    panel.add_button("Child", tk::SAME_ROW, [&demo](tk::Button &) { start_child(demo); });
    demo.output = &demo.main.add_text_window();
    demo.output->set_editable(false);
    demo.output->set_wrap(true);
    demo.main.show_footer(true);
    demo.main.set_footer("Output window");
    demo.main.set_size({400, 400});
    demo.main.set_on_close([](tk::Frame &) { tk::notify_stop(); });
}

}  // namespace

int main(int argc, char **argv) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    tk::init(argc, argv);
    if (argc > 1) {
        fmt::print(stderr, "unknown: {}\n", argv[1]);
        return 2;
    }
    Demo demo;
    make_menu(demo);
    make_main(demo);
    demo.main.show();
    tk::main_loop();
    return 0;
}
