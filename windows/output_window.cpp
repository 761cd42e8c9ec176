#include "windows/output_window.hpp"

#include <algorithm>

#include "base/text.hpp"
#include "drawing/text.hpp"

namespace brindle {
namespace {

constexpr std::size_t most_waiting = std::size_t{1} << 20;
constexpr std::size_t at_once = std::size_t{1} << 16;  // so much takes some milliseconds
constexpr int most_characters = 1 << 20;
constexpr int longest_line = 2000;

}  // namespace

QString with_bearable_lines(const QString &text, int &column) {
    QString shown;
    shown.reserve(text.size());
    for (const QChar c : text) {
        if (c == QChar(0)) continue;
        if (column >= longest_line && c != '\n' && !c.isLowSurrogate()) shown += '\n', column = 0;
        shown += c;
        column = c == '\n' ? 0 : column + 1;
    }
    return shown;
}

OutputWindow::OutputWindow() {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setAccessibleName("Output window");
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setWordWrapMode(QTextOption::WrapAnywhere);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, [this] {
        if (show_some()) timer_.start(5);
    });
}

// A flood keeps its last part only: nobody could have read the rest.
void OutputWindow::append_text(std::string_view bytes) {
    waiting_ += bytes;
    if (waiting_.size() > 2 * most_waiting) {
        const std::size_t first = waiting_.size() - most_waiting;
        waiting_.erase(0, std::min(waiting_.find('\n', first), first + longest_line) + 1);
    }
    if (!timer_.isActive()) timer_.start(waiting_.size() > 4096 ? 20 : 0);
}

void OutputWindow::flush() {
    while (show_some()) {
    }
}

// Shows the beginning of what waits. False: no whole character waits any more.
bool OutputWindow::show_some() {
    std::size_t size = std::min(waiting_.size(), at_once);
    size -= unfinished_tail(std::string_view(waiting_).substr(0, size));
    if (size == 0) return false;
    QString shown = with_bearable_lines(to_qstring(std::string_view(waiting_).substr(0, size)), column_);
    waiting_.erase(0, size);
    make_room(static_cast<int>(shown.size()));
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(shown);
    show_end();
    return !waiting_.empty();
}

// Removes the first lines, as many as the text that is to come is over the limit.
void OutputWindow::make_room(int characters) {
    const int over = document()->characterCount() + characters - most_characters;
    if (over <= 0) return;
    QTextCursor cursor(document());
    cursor.setPosition(std::min(over, document()->characterCount() - 1), QTextCursor::KeepAnchor);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

// The lines that are to be seen are wrapped first: until then the scroll bar takes each for one line. What
// the user has selected stays so.
void OutputWindow::show_end() {
    if (textCursor().hasSelection()) return verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    double height = 0;
    for (QTextBlock block = document()->lastBlock(); block.isValid(); block = block.previous()) {
        height += blockBoundingRect(block).height();
        if (height > viewport()->height()) break;
    }
    moveCursor(QTextCursor::End);
    ensureCursorVisible();
}

}  // namespace brindle
