#pragma once
// The screen map that a program keeps under BRINDLE_UI_MAP, as records.
#include <string>
#include <vector>

namespace brindle::windows {

struct Area {
    int x = 0, y = 0, w = 0, h = 0;
    int middle_x() const { return x + w / 2; }
    int middle_y() const { return y + h / 2; }
};

struct ShownFrame {
    int id = 0, owner = 0;
    std::string title, footer;
    bool busy = false;
    Area area;
    // What tells it from others of its title: good wherever a title is asked for.
    std::string handle() const { return "#" + std::to_string(id); }
};

struct ShownText {
    int frame = 0;
    std::string text;
};

struct ShownItem {
    int frame = 0;
    std::string kind, label, value;
    bool active = true;
    Area area;
};

struct ShownRow {
    int frame = 0;
    std::string list, text;
    bool selected = false;
    Area area;
};

struct ShownNode {
    int frame = 0;
    std::string path, category, tag, word;
    bool selected = false;
    Area area;
};

struct UiMap {
    int serial = 0;
    std::vector<ShownFrame> frames;  // topmost last
    std::vector<ShownText> texts;
    std::vector<ShownItem> items;
    std::vector<ShownRow> rows;
    std::vector<ShownNode> nodes;

    // The topmost frame of that title, or the one of that handle; null: none.
    const ShownFrame *frame(const std::string &title) const;
    // The topmost frame at that place of the screen; null: none.
    const ShownFrame *frame_at(int x, int y) const;
    // The item of that kind and label in the topmost frame that has one (of that title, if one is given);
    // null: none.
    const ShownItem *item(const std::string &kind, const std::string &label,
                          const std::string &title = {}) const;
    const ShownRow *row(const std::string &text, const std::string &title = {}) const;
    const ShownNode *node(const std::string &path, const std::string &title = {}) const;
    // The lines of text of the topmost frame of that title.
    std::vector<std::string> lines(const std::string &title) const;
    bool has_line(const std::string &title, const std::string &line) const;
};

// Throws std::runtime_error for a line that is none.
UiMap parse_ui_map(const std::string &text);

}  // namespace brindle::windows
