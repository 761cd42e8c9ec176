#include "toolkit/look.hpp"

#include <FL/Fl.H>
#include <FL/Fl_Tooltip.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <list>

#include "toolkit/font_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/x_options.hpp"

namespace brindle::tk {

namespace {

constexpr int TEXT_PIXELS = 13;

Colour foreground_colour{0, 0, 0};
Colour background_colour{255, 255, 255};
int label_size = TEXT_PIXELS;

// A colour by name or "#rrggbb"; what it was before when the server does not know it.
void parse_colour(const std::string &name, Colour &colour) {
    XColor parsed{};
    if (name.empty() || !XParseColor(fl_display, fl_colormap, name.c_str(), &parsed)) return;
    const auto high = [](unsigned short value) { return static_cast<unsigned char>(value >> 8); };
    colour = {high(parsed.red), high(parsed.green), high(parsed.blue)};
}

// FLTK keeps the pointer to a font's name, so it has to live for good.
void set_face(Fl_Font font, char style, const std::string &family) {
    static std::list<std::string> names;
    Fl::set_font(font, names.emplace_back(style + family).c_str());
}

std::string label_family() {
    const std::string &wanted = x_options().font;
    for (const std::string &name : {wanted, std::string("Liberation Sans"), std::string("lucida-normal")}) {
        const auto face = name.empty() || name[0] == '-' ? std::nullopt : find_face(name);
        if (face) return face->family;
    }
    return "sans-serif";
}

void set_up_fonts() {
    const std::string family = label_family();
    set_face(FL_HELVETICA, ' ', family);
    set_face(FL_HELVETICA_BOLD, 'B', family);
    set_face(FL_COURIER, ' ', find_face("courier-normal")->family);
    label_size = px(TEXT_PIXELS);
    FL_NORMAL_SIZE = label_size;
}

void use_font(bool bold) {
    fl_font(bold ? FL_HELVETICA_BOLD : FL_HELVETICA, label_size);
}

Fl_Color mixed(Fl_Color a, Fl_Color b) {
    return fl_color_average(a, b, 0.5F);
}

}  // namespace

Fl_Color fl_colour(Colour colour) {
    return fl_rgb_color(colour.r, colour.g, colour.b);
}
Colour text_foreground() {
    return foreground_colour;
}
Colour text_background() {
    return background_colour;
}

void set_up_look() {
    const XOptions &options = x_options();
    parse_colour(options.foreground, foreground_colour);
    parse_colour(options.background, background_colour);
    if (options.reverse) std::swap(foreground_colour, background_colour);
    set_up_fonts();
    Fl::background(0xEC, 0xEE, 0xF0);
    Fl::background2(0xFF, 0xFF, 0xFF);
    Fl::foreground(0x20, 0x24, 0x28);
    Fl::set_color(FL_SELECTION_COLOR, 0x2F, 0x6D, 0xB5);
    Fl::visible_focus(0);
    Fl_Tooltip::disable();
    Fl::scrollbar_size(px(look::SCROLLBAR));
}

int text_size() {
    return label_size;
}

int line_height() {
    use_font(false);
    return fl_height();
}

int text_width(const std::string &utf8, bool bold) {
    open_display();
    use_font(bold);
    return static_cast<int>(std::ceil(fl_width(utf8.data(), static_cast<int>(utf8.size()))));
}

void draw_text(const std::string &utf8, Box box, Align align, Fl_Color colour, bool bold) {
    use_font(bold);
    const int width = text_width(utf8, bold);
    const int slack = std::max(0, box.w - width);
    const int x = box.x + (align == Align::left ? 0 : align == Align::right ? slack : slack / 2);
    const int y = box.y + (box.h + fl_height()) / 2 - fl_descent();
    fl_push_clip(box.x, box.y, box.w, box.h);
    fl_color(colour);
    fl_draw(utf8.data(), static_cast<int>(utf8.size()), x, y);
    fl_pop_clip();
}

void draw_frame_box(Box box, Fl_Color face, Fl_Color border, Fl_Color ground) {
    fl_color(face);
    fl_rectf(box.x, box.y, box.w, box.h);
    fl_color(border);
    fl_rect(box.x, box.y, box.w, box.h);
    const int right = box.x + box.w - 1;
    const int bottom = box.y + box.h - 1;
    const Point corners[] = {{box.x, box.y}, {right, box.y}, {box.x, bottom}, {right, bottom}};
    for (const Point &corner : corners) {
        const int in_x = corner.x == box.x ? 1 : -1;
        const int in_y = corner.y == box.y ? 1 : -1;
        fl_color(ground);
        fl_point(corner.x, corner.y);
        fl_color(mixed(ground, border));
        fl_point(corner.x + in_x, corner.y);
        fl_point(corner.x, corner.y + in_y);
        fl_color(mixed(face, border));
        fl_point(corner.x + in_x, corner.y + in_y);
    }
}

void draw_field(Box box, bool focused, bool active) {
    const Fl_Color border = focused ? look::ACCENT : active ? look::BORDER : look::FAINT;
    draw_frame_box(box, active ? look::FIELD : look::GROUND, border);
    if (!focused) return;
    fl_color(look::ACCENT);
    fl_rect(box.x + 1, box.y + 1, box.w - 2, box.h - 2);
}

void draw_triangle(Box box, char direction, Fl_Color colour) {
    const int size = px(4);
    const int x = box.x + box.w / 2;
    const int y = box.y + box.h / 2;
    fl_color(colour);
    if (direction == 'v') {
        fl_polygon(x - size, y - size / 2, x + size, y - size / 2, x, y + size - size / 2);
    } else if (direction == '^') {
        fl_polygon(x - size, y + size / 2, x + size, y + size / 2, x, y - size + size / 2);
    } else {
        fl_polygon(x - size / 2, y - size, x + size - size / 2, y, x - size / 2, y + size);
    }
}

void draw_tick(Box box, Fl_Color colour) {
    const int x = box.x + box.w / 2;
    const int y = box.y + box.h / 2;
    const int size = px(3);
    fl_color(colour);
    fl_line_style(FL_SOLID, std::max(2, px(2)));
    fl_line(x - size, y, x - size / 3, y + size - 1, x + size + 1, y - size);
    fl_line_style(0);
}

}  // namespace brindle::tk
