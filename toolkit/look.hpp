#pragma once
// How everything looks: colours, measures, and the drawing that items share. Sizes are px; texts are UTF-8.
#include <FL/Enumerations.H>

#include <string>

#include "toolkit/geometry.hpp"

namespace brindle::tk {

namespace look {

inline constexpr Fl_Color GROUND = 0xECEEF000;       // panels and frames
inline constexpr Fl_Color FIELD = 0xFFFFFF00;        // what is typed into or chosen from
inline constexpr Fl_Color TEXT = 0x20242800;         // labels and values
inline constexpr Fl_Color GREY_TEXT = 0xA0A4A800;    // of inactive items
inline constexpr Fl_Color BORDER = 0xB4BAC000;       // of buttons and fields
inline constexpr Fl_Color FAINT = 0xD4D8DC00;        // separators, inactive borders
inline constexpr Fl_Color BUTTON = 0xFAFBFC00;       // a button's face
inline constexpr Fl_Color BUTTON_OVER = 0xFFFFFF00;  // with the pointer on it
inline constexpr Fl_Color BUTTON_DOWN = 0xD6DEE800;  // pressed
inline constexpr Fl_Color ACCENT = 0x2F6DB500;       // focus, selection, marks
inline constexpr Fl_Color ON_ACCENT = 0xFFFFFF00;    // text on it
inline constexpr Fl_Color NOTICE = 0xFFFDF500;       // a notice's ground

// Height of a button or field, of a line of text; the pieces of margins. Unscaled.
inline constexpr int CONTROL = 24;
inline constexpr int ITEM_GAP = 10;
inline constexpr int ROW_GAP = 9;
inline constexpr int LABEL_GAP = 6;
inline constexpr int PADDING = 6;
inline constexpr int SCROLLBAR = 13;

}  // namespace look

enum class Align { left, centre, right };

// Fonts, colours and boxes for FLTK; called once when the display has been opened.
void set_up_look();

// The foreground and background of canvases and text windows.
Colour text_foreground();
Colour text_background();
Fl_Color fl_colour(Colour colour);

int text_size();    // of labels, px
int line_height();  // of a line of labels
int text_width(const std::string &utf8, bool bold = false);
// One line of text, centred vertically in the box. Nothing is drawn outside the box.
void draw_text(const std::string &utf8, Box box, Align align, Fl_Color colour, bool bold = false);

// A box with slightly rounded corners.
void draw_frame_box(Box box, Fl_Color face, Fl_Color border, Fl_Color ground = look::GROUND);
// A field's box; with the keyboard it has a thicker border in the accent colour.
void draw_field(Box box, bool focused, bool active);
// A small triangle that points down, up or right ('v', '^', '>') in the middle of the box.
void draw_triangle(Box box, char direction, Fl_Color colour);
// A tick in the middle of the box.
void draw_tick(Box box, Fl_Color colour);

}  // namespace brindle::tk
