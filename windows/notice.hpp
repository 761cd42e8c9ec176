#pragma once
// Blocking notices: a message, some buttons, an answer. Messages are in the locale's encoding and may hold
// several lines.
#include <QKeySequence>
#include <QPoint>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace brindle {

struct NoticeButton {
    std::string label;
    int value = 0;
};

// A key that answers the notice.
struct NoticeKey {
    QKeyCombination key;
    int value = 0;
};

struct NoticeSpec {
    std::string message;  // shown as clean_message() makes it
    std::vector<NoticeButton> buttons = {{"Ok", 1}};
    std::optional<int> default_value = {};  // of the button that Return presses; without it the first
    std::optional<int> escape_value = {};   // Escape's; without it that of "Cancel", else of the last button
    std::vector<NoticeKey> keys = {};
    bool silent = false;  // without the bell
};

// Shows the notice over its owner or, if a place on the screen is given, pointing at that, and returns the
// answer. Meanwhile no other window takes input, but they are drawn, and Prolog and timers are served.
// Notices may nest.
int ask(QWidget *owner, const NoticeSpec &spec, std::optional<QPoint> pointed_at = {});

// The message with "Ok".
void tell(QWidget *owner, std::string_view message, bool silent);

}  // namespace brindle
