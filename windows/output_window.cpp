#include "windows/output_window.hpp"

#include <algorithm>

#include "drawing/text.hpp"

namespace brindle {
namespace {

constexpr int most_characters = 1 << 20;

}  // namespace

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

void OutputWindow::append_text(std::string_view bytes) {
    waiting_.append(bytes);
    if (!timer_.isActive()) timer_.start(waiting_.size() > 4096 ? 20 : 0);
}

// Shows the beginning of what waits, which takes some milliseconds. False: no whole character waits any more.
bool OutputWindow::show_some() {
    const std::string piece = waiting_.take();
    if (piece.empty()) return false;
    const QString shown = to_qstring(with_bearable_lines(piece, column_));
    make_room(static_cast<int>(shown.size()));
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(shown);
    show_end();
    return waiting_.size() > 0;
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
