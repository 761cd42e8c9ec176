#pragma once
// Top-level windows: base frames and the command frames that belong to them. A frame owns its subframes,
// panels, canvas and text window.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/canvas.hpp"
#include "toolkit/object.hpp"
#include "toolkit/panel.hpp"
#include "toolkit/text_window.hpp"

namespace brindle::tk {

class CommandFrame;

enum class Side { top, left };
enum class FrameKind { base, command, notice };

class Frame : public Object {
  public:
    struct Impl;
    // A base frame without an owner: the main frame. Opens the display. The frame is hidden.
    explicit Frame(std::string_view title);
    ~Frame() override;

    // A base frame or a command frame that this one owns.
    Frame &add_frame(std::string_view title);
    CommandFrame &add_command_frame(std::string_view title = {});
    Frame *owner() const;  // null: none
    const std::vector<std::unique_ptr<Frame>> &subframes() const;
    // Hides the frame with its subframes at once and frees them when no callback runs any more; the
    // references to it must not be used after the callback that called this.
    void destroy();

    // Contents, in this order: panels at the top or left, then one canvas or text window that takes what is
    // left.
    Panel &add_panel(Side side = Side::top);
    Canvas &add_canvas();
    TextWindow &add_text_window();
    const std::vector<std::unique_ptr<Panel>> &panels() const;

    std::string title() const;
    void set_title(std::string_view title);
    void show_footer(bool shown);  // a line at the lower edge; off at start
    std::string footer() const;
    void set_footer(std::string_view text);  // "" clears it. Newlines, tabs and control characters are blanks
    // A busy frame shows a busy pointer and ignores all input.
    bool busy() const;
    void set_busy(bool busy);

    void show();  // or raises it; the keyboard goes to the first text field, its text selected, or the list,
                  // or canvas
    void hide();
    bool shown() const;
    // Shows it with its upper left corner at that place of the screen, moved so that all of it is on the
    // screen.
    void show_at(Point screen);
    Point position() const;  // of the upper left corner on the screen
    void set_position(Point screen);
    Size size() const;
    void set_size(Size size);
    void fit();  // to its contents
    void set_resizable(bool resizable);
    // The window manager's close. Default: a command frame hides, a base frame does nothing.
    void set_on_close(std::function<void(Frame &)> callback);

    Impl &impl() const { return *impl_; }

  protected:
    Frame(Frame *owner, std::string_view title, FrameKind kind);

  private:
    std::unique_ptr<Impl> impl_;
};

// A pop-up window with one panel, whose pushpin is a state that commands set.
class CommandFrame : public Frame {
  public:
    CommandFrame(Frame &owner, std::string_view title);
    Panel &panel() const;  // its first panel, made with it
    bool pinned() const { return pinned_; }
    void set_pinned(bool pinned) { pinned_ = pinned; }

  private:
    bool pinned_ = false;
};

}  // namespace brindle::tk
