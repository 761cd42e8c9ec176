#pragma once
// The one-line text input in text fields, numeric fields and sliders.
#include <FL/Fl_Input.H>

#include <functional>
#include <string>

namespace brindle::tk {

class Entry : public Fl_Input {
  public:
    // stored: bytes of the locale's encoding at most; digits: takes numbers only.
    Entry(int stored, bool digits);

    std::string utf8() const;
    void set_utf8(const std::string &text);
    void select_all();
    int stored() const { return stored_; }

    bool select_on_click = false;   // a click that gives it the keyboard selects the text
    std::function<void()> on_left;  // it has lost the keyboard

    void draw() override;
    int handle(int event) override;

  private:
    void keep_limit();

    int stored_;
};

// Width of an entry that shows that many characters, px.
int entry_width(int characters);

}  // namespace brindle::tk
