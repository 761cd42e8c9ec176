#pragma once
// A frame as the toolkit's files see it.
#include <FL/Fl_Double_Window.H>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "toolkit/frame.hpp"

namespace brindle::tk {

class ItemView;
class TopWindow;

struct Frame::Impl {
    using Kind = FrameKind;

    Impl(Frame &frame, Frame *owner, std::string_view title, Kind kind);
    ~Impl();

    Frame &self;
    Frame *owner;
    Kind kind;
    int id;              // in the screen map
    std::string title;   // locale
    std::string footer;  // UTF-8
    bool footer_shown = false;
    bool busy = false;
    bool resizable = true;
    bool mapped = false;              // the server has it on the screen
    bool placed = false;              // someone said where it is to be
    Fl_Widget *last_focus = nullptr;  // had the keyboard last, or is to have it
    bool has_keyboard = false;        // the server sends keys here
    bool destroyed = false;           // hidden for good, to be freed
    std::function<void(Frame &)> on_close;
    std::function<bool(const Event &)> key_hook;  // sees the frame's keys first; true: dealt with
    std::function<void(Box)> draw_ground;         // draws under the items of a notice

    std::unique_ptr<TopWindow> window;
    std::vector<std::unique_ptr<Panel>> panels;
    std::vector<Side> sides;  // of the panels
    std::unique_ptr<Canvas> canvas;
    std::unique_ptr<TextWindow> text;
    std::vector<std::unique_ptr<Frame>> subframes;

    // Gives panels, canvas and text window their places in the window.
    void lay_out();
    Size fitted() const;      // px
    Size least_size() const;  // px, that cuts no item
    void grow();              // to the least size, if it has been shown and is smaller
    int footer_height() const;
    Box footer_box() const;
    Point origin() const;  // of the window on the screen, px
    void set_size_range();
    void show_window();
    void hide_window();
    void close();  // as the window manager asks

    // The keyboard inside the frame.
    Fl_Widget *focus_widget();              // that has it, or should; null: nobody can
    Fl_Widget *first_focus();               // that gets it when the frame opens
    std::vector<ItemView *> focus_items();  // that can have it, in the order of Tab
    ItemView *view_of(const Fl_Widget *widget) const;
    void move_keyboard_to(Fl_Widget *widget);  // and shows it
    void focus_on(Fl_Widget *widget);          // now, or when the frame has the keyboard
    void give_focus(ItemView &view);           // and selects its text
    void offer_focus(ItemView &view);          // takes it if nothing of use has it
    void handle_key();                         // the key of FLTK's current event
    void commit_elsewhere();                   // a button press outside the field that has the keyboard

  private:
    bool background_key(Panel *panel, const Event &event);
    bool default_key(Panel *panel, const Event &event);
    bool text_has_focus(const Fl_Widget *widget) const;
    void move_focus(bool backwards);
    Fl_Widget *content_focus();
};

// The X and FLTK window of a frame.
class TopWindow : public Fl_Double_Window {
  public:
    TopWindow(Frame::Impl &impl, const char *title);
    Frame::Impl &impl;
    void resize(int x, int y, int w, int h) override;
    void draw() override;
    int handle(int event) override;
};

// The frame of an FLTK window, or of the window it is in; null: none.
Frame::Impl *frame_of(const Fl_Window *window);
// All frames there are, in the order they were made.
const std::vector<Frame::Impl *> &all_frames();
// Base frames that have not been destroyed.
int live_frames();

// The key of FLTK's current event; code 0: a key that stands for nothing, such as Shift.
Event decode_key();
// Fills the modifiers in.
void decode_modifiers(Event &event);

}  // namespace brindle::tk
