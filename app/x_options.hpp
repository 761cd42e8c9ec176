#pragma once
// The options that programs for X have by custom, on whatever platform the windows are.
#include <string>

namespace brindle {

struct XOptions {
    std::string display, geometry, title, name, foreground, background, font, scale;
    bool iconic = false;
    bool reverse = false;
};

// Takes the options that it knows off the command line; those that mean nothing here go with them.
XOptions take_x_options(int &argc, char **argv);

// Puts display, scale and name where Qt looks for them. To be called before there is an application.
void apply_before_start(const XOptions &options);

// Why there are no windows to be had, for instance as no X server answers; "": there are.
std::string why_no_display(const XOptions &options);

}  // namespace brindle
