#include "windows/bracketing_edit.hpp"

namespace brindle {
namespace {

enum class Key {
    backspace,
    cut,
    copy,
    paste,
    again,
    undo,
    redo,
    down,
    up,
    word_on,
    del,
    to_start,
    to_end,
    word_before,
    word_behind
};

struct Binding {
    QKeyCombination keys;
    Key key;
};

constexpr auto meta = Qt::AltModifier;
constexpr auto control = Qt::ControlModifier;
constexpr auto shift = Qt::ShiftModifier;

// Meta is what a keyboard calls Alt or Meta.
const Binding bindings[] = {
    {meta | Qt::Key_X, Key::cut},
    {meta | Qt::Key_C, Key::copy},
    {meta | Qt::Key_V, Key::paste},
    {meta | Qt::Key_A, Key::again},
    {meta | Qt::Key_U, Key::undo},
    {control | Qt::Key_N, Key::down},
    {control | Qt::Key_P, Key::up},
    {control | Qt::Key_Slash, Key::word_on},
    {QKeyCombination(Qt::Key_Delete), Key::backspace},
    {shift | Qt::Key_Delete, Key::del},
    {shift | Qt::Key_Backspace, Key::del},
    {control | Qt::Key_U, Key::to_start},
    {control | shift | Qt::Key_U, Key::to_end},
    {control | Qt::Key_W, Key::word_before},
    {control | shift | Qt::Key_W, Key::word_behind},
    {control | Qt::Key_Z, Key::undo},
    {control | shift | Qt::Key_Z, Key::redo},
    {control | Qt::Key_Y, Key::redo},
};

const Binding *binding_of(const QKeyEvent &event) {
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    QKeyCombination pressed = modifiers | Qt::Key(event.key());
    if (modifiers & Qt::MetaModifier) pressed = (modifiers ^ Qt::MetaModifier) | meta | Qt::Key(event.key());
    for (const Binding &binding : bindings)
        if (binding.keys == pressed) return &binding;
    return nullptr;
}

}  // namespace

BracketingEdit::BracketingEdit() {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(false);
    setAccessibleName("Bracketing");
    connect(document(), &QTextDocument::contentsChange, this, &BracketingEdit::note_change);
}

const char *BracketingEdit::help() {
    return "M is Meta, C is Control, S is shift\n\ncut = M-x\npaste = M-v\n-\ngo line down = C-n\ngo line up "
           "= "
           "C-p\n"
           "go word forward = C-/\ngo right = right\ngo left = left\npagedown = pgdown\npageup = pgup\n-\n"
           "delete char backward = del,backspace\ndelete char forward = S-del,S-backspace\ndelete line "
           "backward "
           "= C-u\n"
           "delete line forward = C-U\ndelete word backward = C-w\ndelete word forward = C-W\n-\nagain = "
           "M-a\nundo = M-u"
           "\n-\ncopy, cut, paste = C-c, C-x, C-v\nselect all = C-a\nundo = C-z\nredo = S-C-z";
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

// A key of ours is no shortcut of the window.
bool BracketingEdit::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && binding_of(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QPlainTextEdit::event(event);
}

void BracketingEdit::keyPressEvent(QKeyEvent *event) {
    const Binding *binding = binding_of(*event);
    QTextCursor cursor = textCursor();
    if (!binding) {
        // What is typed over and what is typed are undone one after the other.
        if (!event->text().isEmpty() && event->text().front().isPrint()) cursor.removeSelectedText();
        return QPlainTextEdit::keyPressEvent(event);
    }
    const auto remove_to = [&](QTextCursor::MoveOperation where) {
        cursor.clearSelection();
        cursor.movePosition(where, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    };
    switch (binding->key) {
        case Key::backspace:
            cursor.deletePreviousChar();
            break;
        case Key::cut:
            cut();
            break;
        case Key::copy:
            copy();
            break;
        case Key::paste:
            paste();
            break;
        case Key::again:
            again();
            break;
        case Key::undo:
            undo();
            break;
        case Key::redo:
            redo();
            break;
        case Key::down:
            moveCursor(QTextCursor::Down);
            break;
        case Key::up:
            moveCursor(QTextCursor::Up);
            break;
        case Key::word_on:
            moveCursor(QTextCursor::NextWord);
            break;
        case Key::del:
            cursor.deleteChar();
            break;
        case Key::to_start:
            remove_to(QTextCursor::StartOfBlock);
            break;
        case Key::to_end:
            remove_to(QTextCursor::EndOfBlock);
            break;
        case Key::word_before:
            remove_to(QTextCursor::PreviousWord);
            break;
        case Key::word_behind:
            remove_to(QTextCursor::NextWord);
            break;
    }
    ensureCursorVisible();
}

}  // namespace brindle
