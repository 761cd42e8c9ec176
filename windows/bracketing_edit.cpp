#include "windows/bracketing_edit.hpp"

#include <algorithm>

namespace brindle {
namespace {

constexpr auto meta = Qt::AltModifier;
constexpr auto control = Qt::ControlModifier;
constexpr auto shift = Qt::ShiftModifier;

// Meta is what a keyboard calls Alt or Meta.
QKeyCombination keys_of(const QKeyEvent &event) {
    auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers & Qt::MetaModifier) modifiers = (modifiers ^ Qt::MetaModifier) | meta;
    return modifiers | Qt::Key(event.key());
}

}  // namespace

BracketingEdit::BracketingEdit()
    : bindings_{
          {meta | Qt::Key_X, [this] { cut(); }},
          {meta | Qt::Key_C, [this] { copy(); }},
          {meta | Qt::Key_V, [this] { paste(); }},
          {meta | Qt::Key_A, [this] { again(); }},
          {meta | Qt::Key_U, [this] { undo(); }},
          {control | Qt::Key_Z, [this] { undo(); }},
          {control | shift | Qt::Key_Z, [this] { redo(); }},
          {control | Qt::Key_Y, [this] { redo(); }},
          {control | Qt::Key_N, [this] { moveCursor(QTextCursor::Down); }},
          {control | Qt::Key_P, [this] { moveCursor(QTextCursor::Up); }},
          {control | Qt::Key_Slash, [this] { moveCursor(QTextCursor::NextWord); }},
          {QKeyCombination(Qt::Key_Delete), [this] { textCursor().deletePreviousChar(); }},
          {shift | Qt::Key_Delete, [this] { textCursor().deleteChar(); }},
          {shift | Qt::Key_Backspace, [this] { textCursor().deleteChar(); }},
          {control | Qt::Key_U, [this] { remove_to(QTextCursor::StartOfBlock); }},
          {control | shift | Qt::Key_U, [this] { remove_to(QTextCursor::EndOfBlock); }},
          {control | Qt::Key_W, [this] { remove_to(QTextCursor::PreviousWord); }},
          {control | shift | Qt::Key_W, [this] { remove_to(QTextCursor::NextWord); }},
      } {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(false);
    setAccessibleName("Bracketing");
    connect(document(), &QTextDocument::contentsChange, this, &BracketingEdit::note_change);
}

const char *BracketingEdit::help() {
    return "M is Meta, C is Control, S is shift\n\n"
           "cut = M-x\npaste = M-v\n-\n"
           "go line down = C-n\ngo line up = C-p\ngo word forward = C-/\n"
           "go right = right\ngo left = left\npagedown = pgdown\npageup = pgup\n-\n"
           "delete char backward = del,backspace\ndelete char forward = S-del,S-backspace\n"
           "delete line backward = C-u\ndelete line forward = C-U\n"
           "delete word backward = C-w\ndelete word forward = C-W\n-\n"
           "again = M-a\nundo = M-u\n-\n"
           "copy, cut, paste = C-c, C-x, C-v\nselect all = C-a\nundo = C-z\nredo = S-C-z";
}

void BracketingEdit::go_to_line(int line) {
    const QTextBlock block = document()->findBlockByNumber(std::max(0, line - 1));
    setTextCursor(QTextCursor(block.isValid() ? block : document()->lastBlock()));
    ensureCursorVisible();
}

void BracketingEdit::note_change(int position, int removed, int added) {
    last_removed_ = removed;
    last_inserted_.clear();
    for (int n = 0; n < added; ++n) {
        const QChar c = document()->characterAt(position + n);
        last_inserted_ += c == QChar::ParagraphSeparator ? QChar('\n') : c;
    }
}

// The latest change once more, at the insertion point.
void BracketingEdit::again() {
    QTextCursor cursor = textCursor();
    if (last_inserted_.isEmpty())
        for (int n = last_removed_; n > 0; --n) cursor.deletePreviousChar();
    else
        cursor.insertText(QString(last_inserted_));
}

void BracketingEdit::remove_to(QTextCursor::MoveOperation where) {
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    cursor.movePosition(where, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

const BracketingEdit::Binding *BracketingEdit::binding_of(const QEvent &event) const {
    const auto at =
        std::ranges::find(bindings_, keys_of(static_cast<const QKeyEvent &>(event)), &Binding::keys);
    return at == bindings_.end() ? nullptr : &*at;
}

// A key of ours is no shortcut of the window.
bool BracketingEdit::event(QEvent *event) {
    if (event->type() != QEvent::ShortcutOverride || !binding_of(*event)) return QPlainTextEdit::event(event);
    event->accept();
    return true;
}

void BracketingEdit::keyPressEvent(QKeyEvent *event) {
    if (const Binding *binding = binding_of(*event)) {
        binding->act();
        return ensureCursorVisible();
    }
    // What is typed over and what is typed are undone one after the other.
    if (!event->text().isEmpty() && event->text().front().isPrint()) textCursor().removeSelectedText();
    QPlainTextEdit::keyPressEvent(event);
}

}  // namespace brindle
