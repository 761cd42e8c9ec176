#pragma once
// The X options of the command line.
#include <string>

namespace brindle::tk {

struct XOptions {
    std::string program;  // argv[0]
    std::string display, geometry, title, name, foreground, background, font;
    std::string scale;
    bool iconic = false;
    bool reverse = false;
};

// What init() found; the values of options that were not given are empty.
XOptions &x_options();

}  // namespace brindle::tk
