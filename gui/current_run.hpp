#pragma once
// The run that goes on in the workbench: a batch, or the writing of the information format. At most one does.
#include <functional>

namespace brindle {

struct TreeWindow;

// A run of the window begins; `stop` makes it end soon. Returns its number.
int begin_run(TreeWindow &tw, std::function<void()> stop);

// Stops the run that goes on, if one does; then none does.
void end_run();

// Whether the run of that number goes on: neither Abort has ended it, which another run may have followed,
// nor its own end.
bool run_goes_on(int number);

// The window of the run that goes on; null: none does.
TreeWindow *running_window();

// Handles what the user has done meanwhile and draws what is due; called between two trees of a run.
void dispatch_in_run();

}  // namespace brindle
