#include "windows/ui_map_reader.hpp"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace brindle::windows {

namespace {

std::string unescaped(const std::string &text) {
    std::string out;
    for (std::size_t n = 0; n < text.size(); ++n) {
        const bool escape =
            text[n] == '\\' && n + 1 < text.size() && (text[n + 1] == 'n' || text[n + 1] == 't');
        out += escape ? (text[++n] == 'n' ? '\n' : '\t') : text[n];
    }
    return out;
}

// The fields of a line, taken one after another.
class Fields {
  public:
    explicit Fields(const std::string &line) : line_(line) {
        std::istringstream in(line);
        for (std::string field; std::getline(in, field, '\t');) fields_.push_back(field);
        if (!line.empty() && line.back() == '\t') fields_.emplace_back();
    }
    std::string text() {
        if (next_ >= fields_.size()) throw std::runtime_error("short line in the screen map: " + line_);
        return unescaped(fields_[next_++]);
    }
    int number() { return std::stoi(text()); }
    bool is(const std::string &wanted) { return text() == wanted; }
    Area area() {
        Area area;
        for (int *part : {&area.x, &area.y, &area.w, &area.h}) *part = number();
        if (next_ != fields_.size()) throw std::runtime_error("long line in the screen map: " + line_);
        return area;
    }

  private:
    std::string line_;
    std::vector<std::string> fields_;
    std::size_t next_ = 0;
};

void add_frame(UiMap &map, Fields in) {
    in.text();
    ShownFrame frame;
    frame.id = in.number();
    frame.owner = in.number();
    frame.title = in.text();
    frame.footer = in.text();
    frame.busy = in.is("busy");
    frame.area = in.area();
    map.frames.push_back(frame);
}

void add_item(UiMap &map, Fields in) {
    in.text();
    ShownItem item;
    item.frame = in.number();
    item.kind = in.text();
    item.label = in.text();
    item.value = in.text();
    item.active = in.is("active");
    item.area = in.area();
    map.items.push_back(item);
}

void add_row(UiMap &map, Fields in) {
    in.text();
    ShownRow row;
    row.frame = in.number();
    row.list = in.text();
    row.text = in.text();
    row.selected = in.is("selected");
    row.area = in.area();
    map.rows.push_back(row);
}

void add_node(UiMap &map, Fields in) {
    in.text();
    ShownNode node;
    node.frame = in.number();
    node.path = in.text();
    node.category = in.text();
    node.tag = in.text();
    node.word = in.text();
    node.selected = in.is("selected");
    node.area = in.area();
    map.nodes.push_back(node);
}

void add_line(UiMap &map, const std::string &line) {
    Fields in(line);
    const std::string kind = Fields(line).text();
    if (kind == "frame") return add_frame(map, in);
    if (kind == "item") return add_item(map, in);
    if (kind == "row") return add_row(map, in);
    if (kind == "node") return add_node(map, in);
    in.text();
    const int number = in.number();
    if (kind == "serial") {
        map.serial = number;
    } else if (kind == "text") {
        map.texts.push_back({number, in.text()});
    } else {
        throw std::runtime_error("unknown line in the screen map: " + line);
    }
}

bool is_meant(const ShownFrame &frame, const std::string &title) {
    return frame.title == title || frame.handle() == title;
}

// The last of the records, whose frames come topmost last, that fits.
template <class Record, class Fits>
const Record *topmost(const UiMap &map, const std::vector<Record> &records, const std::string &title,
                      Fits fits) {
    for (auto frame = map.frames.rbegin(); frame != map.frames.rend(); ++frame) {
        if (!title.empty() && !is_meant(*frame, title)) continue;
        const auto found = std::ranges::find_if(
            records, [&](const Record &record) { return record.frame == frame->id && fits(record); });
        if (found != records.end()) return &*found;
    }
    return nullptr;
}

}  // namespace

const ShownFrame *UiMap::frame(const std::string &title) const {
    const auto found = std::find_if(frames.rbegin(), frames.rend(),
                                    [&](const ShownFrame &frame) { return is_meant(frame, title); });
    return found == frames.rend() ? nullptr : &*found;
}

const ShownFrame *UiMap::frame_at(int x, int y) const {
    const auto found = std::find_if(frames.rbegin(), frames.rend(), [&](const ShownFrame &frame) {
        const Area &area = frame.area;
        return x >= area.x && y >= area.y && x < area.x + area.w && y < area.y + area.h;
    });
    return found == frames.rend() ? nullptr : &*found;
}

const ShownItem *UiMap::item(const std::string &kind, const std::string &label,
                             const std::string &title) const {
    return topmost(*this, items, title,
                   [&](const ShownItem &item) { return item.kind == kind && item.label == label; });
}

const ShownRow *UiMap::row(const std::string &text, const std::string &title) const {
    return topmost(*this, rows, title, [&](const ShownRow &row) { return row.text == text; });
}

const ShownNode *UiMap::node(const std::string &path, const std::string &title) const {
    return topmost(*this, nodes, title, [&](const ShownNode &node) { return node.path == path; });
}

std::vector<std::string> UiMap::lines(const std::string &title) const {
    std::vector<std::string> found;
    const ShownFrame *shown = frame(title);
    for (const ShownText &text : texts) {
        if (shown && text.frame == shown->id) found.push_back(text.text);
    }
    return found;
}

bool UiMap::has_line(const std::string &title, const std::string &line) const {
    return std::ranges::count(lines(title), line) > 0;
}

UiMap parse_ui_map(const std::string &text) {
    UiMap map;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) add_line(map, line);
    return map;
}

}  // namespace brindle::windows
