#pragma once
// Blocking notices: a message, some buttons, an answer.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/event.hpp"
#include "toolkit/object.hpp"

namespace brindle::tk {

class Canvas;
class Frame;
class Item;
class Panel;
class TextWindow;

struct NoticeButton {
    std::string label;
    int value = 0;
};

// A key that answers the notice: a character's code or an EventCode.
struct NoticeTrigger {
    int code = 0;
    int value = 0;
};

// What the notice belongs to and, if it points at something, where that is on the screen.
struct NoticePlace {
    Frame *frame = nullptr;
    std::optional<Point> pointed;
};

NoticePlace place_on(Frame &frame);
NoticePlace place_on(Panel &panel);
NoticePlace place_on(TextWindow &window);
NoticePlace place_at(Item &item);                       // points at the item
NoticePlace place_at(Panel &panel, Point panel_point);  // points at that place of the panel
NoticePlace place_at(Canvas &canvas, Point canvas_point);

struct NoticeSpec {
    NoticePlace place;
    std::vector<std::string> message;  // lines; newlines inside make lines. Shown as clean_message() makes it
    std::vector<NoticeButton> buttons;  // none: "Ok", 1
    std::optional<int> default_value;   // of the button Return presses; without it the first
    std::optional<int> escape_value;  // Escape's answer; without it that of "Cancel", else of the last button
    std::vector<NoticeTrigger> triggers;
    bool silent = false;  // without the bell
};

// Shows the notice and returns the value of the button (or trigger) that answered it. Meanwhile all other
// windows' input is ignored, but they are drawn, and descriptors, children and timers are served. Notices may
// nest.
int notice_prompt(const NoticeSpec &spec);

// Whether a notice is shown now.
bool notice_shown();

// A notice that is kept and filled again for every showing.
class Notice : public Object {
  public:
    explicit Notice(Frame &owner) { spec.place.frame = &owner; }
    NoticeSpec spec;
    int show() { return notice_prompt(spec); }
};

}  // namespace brindle::tk
