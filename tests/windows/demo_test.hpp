#pragma once
// The toolkit's demo as a fixture, with a window manager or without one.
#include <gtest/gtest.h>

#include "windows/gui.hpp"

namespace brindle::windows {

struct DemoTest : testing::TestWithParam<bool> {
    Gui gui{{TOOLKIT_DEMO}, {GetParam(), {}, {}}};
    void expect_said(const std::string &line) { gui.wait_line("Demo", line); }
    void open(const std::string &button, const std::string &title) {
        gui.press(button);
        gui.wait_focus(title);
    }
};

}  // namespace brindle::windows
