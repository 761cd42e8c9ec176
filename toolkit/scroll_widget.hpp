#pragma once
// A flat scrollbar: a trough with a thumb.
#include <FL/Fl_Widget.H>

#include <functional>

#include "toolkit/geometry.hpp"

namespace brindle::tk {

class ScrollWidget : public Fl_Widget {
  public:
    explicit ScrollWidget(bool horizontal);

    // All in units of the scrolled object.
    int start() const { return start_; }
    int length() const { return length_; }
    int total() const { return total_; }
    int max_start() const { return total_ > length_ ? total_ - length_ : 0; }
    // Sets the view; the start is kept within 0 .. max_start(). Result: the start or a length has changed.
    bool set_view(int start, int length, int total);
    // Scrolls by so many units as the user does.
    void scroll_by(int units);

    std::function<void()> on_scroll;  // the user has scrolled
    int step = 16;                    // of the wheel
    bool horizontal() const { return horizontal_; }

    void draw() override;
    int handle(int event) override;

  private:
    Box thumb() const;
    int along(Box box) const { return horizontal_ ? box.x : box.y; }
    int pointer() const;
    int push();
    int drag();

    bool horizontal_;
    int start_ = 0;
    int length_ = 1;
    int total_ = 1;
    int grip_ = -1;  // of the thumb by the pointer; -1: not dragged
    bool over_ = false;
};

}  // namespace brindle::tk
