#pragma once
// "Tree Size Controls": the sizes that go with the current font size.
#include "windows/command_window.hpp"

namespace brindle {

struct SizeSliders;

class SizeController final : public CommandWindow {
  public:
    explicit SizeController(TreeWindow &owner);
    void open_at(QPoint place);
    // Makes the sliders show the window's current sizes.
    void show_sizes();

  private:
    void set_sliders(const SizeSliders &sizes);

    NumberSlider *vertical_, *sister_, *minimum_, *thickness_;
};

}  // namespace brindle
