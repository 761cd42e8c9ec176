#pragma once
// The connection to the X server: options of the command line, opening, the scale of everything.
#include <string>

#include "toolkit/geometry.hpp"

namespace brindle::tk {

// Takes the X options that it knows (-display D, -geometry G, -title T, -name N, -fg C, -bg C, -fn F,
// -iconic, ...) with their values out of the command line and lowers argc. Needs no display. The name of the
// program in argv[0] names its windows' class.
void init(int &argc, char **argv);

// Connects to the X server if that has not been done; creating the first frame calls it. Without a server:
// one line on standard error and exit(1).
void open_display();

// The factor between the unscaled pixels of the interface and the screen's: BRINDLE_SCALE if set, else
// Xft.dpi / 96, within 0.5 .. 4. Opens the display.
double scale();

// Size of the screen's usable area in unscaled pixels.
Size screen_size();

// Rings the bell.
void bell();

// Sends what has been drawn and asked for to the server and draws what is due.
void flush_display();

}  // namespace brindle::tk
