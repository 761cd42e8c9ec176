#include "toolkit/text_editor.hpp"

#include <FL/Fl.H>

#include <algorithm>

#include "toolkit/display.hpp"
#include "toolkit/look.hpp"

namespace brindle::tk {

namespace {

TextEditor &our(Fl_Text_Editor *editor) {
    return *static_cast<TextEditor *>(editor);
}

// Deletes from the insertion point to another place.
int delete_to(Fl_Text_Editor *editor, int position) {
    const int here = editor->insert_position();
    editor->buffer()->remove(std::min(here, position), std::max(here, position));
    editor->show_insert_position();
    return 1;
}

int key_undo(int, Fl_Text_Editor *e) {
    return our(e).undo(), 1;
}
int key_redo(int, Fl_Text_Editor *e) {
    return our(e).redo(), 1;
}
int key_again(int, Fl_Text_Editor *e) {
    return our(e).again(), 1;
}
int key_line_start(int, Fl_Text_Editor *e) {
    return delete_to(e, e->buffer()->line_start(e->insert_position()));
}
int key_line_end(int, Fl_Text_Editor *e) {
    return delete_to(e, e->buffer()->line_end(e->insert_position()));
}
int key_down(int, Fl_Text_Editor *e) {
    return Fl_Text_Editor::kf_move(FL_Down, e);
}
int key_up(int, Fl_Text_Editor *e) {
    return Fl_Text_Editor::kf_move(FL_Up, e);
}
int key_delete(int, Fl_Text_Editor *e) {
    return Fl_Text_Editor::kf_delete(FL_Delete, e);
}
int key_backspace(int, Fl_Text_Editor *e) {
    return Fl_Text_Editor::kf_backspace(FL_BackSpace, e);
}

int word_start_before(Fl_Text_Editor *editor) {
    const int here = editor->insert_position();
    editor->previous_word();
    const int start = editor->insert_position();
    editor->insert_position(here);
    return start;
}

int word_end_behind(Fl_Text_Editor *editor) {
    const int here = editor->insert_position();
    editor->next_word();
    const int end = editor->insert_position();
    editor->insert_position(here);
    return end;
}

int key_word_before(int, Fl_Text_Editor *e) {
    return delete_to(e, word_start_before(e));
}
int key_word_behind(int, Fl_Text_Editor *e) {
    return delete_to(e, word_end_behind(e));
}

int key_next_word(int, Fl_Text_Editor *e) {
    e->next_word();
    e->show_insert_position();
    return 1;
}

struct Binding {
    int key;
    int state;
    Fl_Text_Editor::Key_Func function;
};

constexpr int SHIFT_CTRL = FL_SHIFT | FL_CTRL;

// Meta is what a keyboard calls Alt or Meta: these are bound to both.
const Binding META_KEYS[] = {
    {'x', 0, Fl_Text_Editor::kf_cut},
    {'c', 0, Fl_Text_Editor::kf_copy},
    {'v', 0, Fl_Text_Editor::kf_paste},
    {'a', 0, key_again},
    {'u', 0, key_undo},
};

const Binding KEYS[] = {
    {'n', FL_CTRL, key_down},
    {'p', FL_CTRL, key_up},
    {FL_Delete, 0, key_backspace},
    {'/', FL_CTRL, key_next_word},
    {FL_BackSpace, 0, key_backspace},
    {FL_Delete, FL_SHIFT, key_delete},
    {FL_BackSpace, FL_SHIFT, key_delete},
    {'u', FL_CTRL, key_line_start},
    {'u', SHIFT_CTRL, key_line_end},
    {'w', FL_CTRL, key_word_before},
    {'w', SHIFT_CTRL, key_word_behind},
    {'z', FL_CTRL, key_undo},
    {'z', SHIFT_CTRL, key_redo},
    {'y', FL_CTRL, key_redo},
};

constexpr Fl_Color TROUGH = 0xE2E5E800;
constexpr Fl_Color THUMB = 0xB0B6BD00;

void flatten(Fl_Scrollbar &bar) {
    bar.box(FL_FLAT_BOX);
    bar.slider(FL_FLAT_BOX);
    bar.color(TROUGH);
    bar.selection_color(THUMB);
}

}  // namespace

TextEditor::TextEditor() : Fl_Text_Editor(0, 0, 1, 1) {
    buffer_.canUndo(0);
    buffer_.add_modify_callback(
        [](int at, int inserted, int deleted, int, const char *deleted_text, void *editor) {
            static_cast<TextEditor *>(editor)->changed(at, inserted, deleted, deleted_text);
        },
        this);
    buffer(&buffer_);
    box(FL_FLAT_BOX);
    textfont(FL_COURIER);
    textsize(text_size());
    color(fl_colour(text_background()));
    textcolor(fl_colour(text_foreground()));
    cursor_color(fl_colour(text_foreground()));
    selection_color(look::ACCENT);
    flatten(*mVScrollBar);
    flatten(*mHScrollBar);
    bind_keys();
}

TextEditor::~TextEditor() {
    buffer(nullptr);
}

void TextEditor::bind_keys() {
    for (const Binding &binding : META_KEYS) {
        add_key_binding(binding.key, FL_ALT, binding.function);
        add_key_binding(binding.key, FL_META, binding.function);
    }
    for (const Binding &binding : KEYS) add_key_binding(binding.key, binding.state, binding.function);
}

// FLTK hands a line that is not wrapped to the X server as one piece, which has to fit into a request.
void TextEditor::look_for_long_lines(int at, int end) {
    constexpr int longest = 10000;
    for (int start = buffer_.line_start(at); start < end && !too_long_;) {
        const int next = buffer_.line_end(start) + 1;
        too_long_ = next - start > longest;
        start = next;
    }
}

// Not while a change is told of: the display may not have heard of it yet.
void TextEditor::wrap_long_lines() {
    if (too_long_ && !mContinuousWrap) wrap_mode(WRAP_AT_BOUNDS, 0);
}

void TextEditor::changed(int at, int inserted, int deleted, const char *deleted_text) {
    look_for_long_lines(at, at + std::max(inserted, 1));
    if (!recording_ || (inserted == 0 && deleted == 0)) return;
    TextEdit edit{static_cast<std::size_t>(at), {}, {}};
    if (deleted > 0) edit.deleted.assign(deleted_text, static_cast<std::size_t>(deleted));
    for (int n = 0; n < inserted; ++n) edit.inserted += buffer_.byte_at(at + n);
    history_.record(std::move(edit));
    if (on_change) on_change();
}

void TextEditor::load(const std::string &utf8) {
    recording_ = false;
    buffer_.text(utf8.c_str());
    recording_ = true;
    history_.forget();
    wrap_long_lines();
    go_to(0);
}

// FLTK measures a line that is wrapped from its start, again and again: what comes without newlines gets
// some.
std::string TextEditor::with_bearable_lines(const std::string &utf8) const {
    constexpr std::size_t longest = 2000;
    const int end = buffer_.length();
    auto column = static_cast<std::size_t>(end - buffer_.line_start(end));
    std::string text;
    for (const char c : utf8) {
        const bool in_character = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
        if (column >= longest && c != '\n' && !in_character) {
            text += '\n';
            column = 0;
        }
        text += c;
        column = c == '\n' ? 0 : column + 1;
    }
    return text;
}

void TextEditor::append_quietly(const std::string &utf8, int most_bytes) {
    recording_ = false;
    buffer_.append(with_bearable_lines(utf8).c_str());
    const int over = buffer_.length() - most_bytes;
    if (over > 0) buffer_.remove(0, std::min(buffer_.length(), buffer_.line_end(over) + 1));
    recording_ = true;
    history_.forget();
    go_to(buffer_.length());
}

void TextEditor::apply(const TextEdit &edit, bool forward) {
    const std::string &out = forward ? edit.deleted : edit.inserted;
    const std::string &in = forward ? edit.inserted : edit.deleted;
    const int at = static_cast<int>(edit.at);
    recording_ = false;
    buffer_.unselect();
    buffer_.replace(at, at + static_cast<int>(out.size()), in.c_str());
    recording_ = true;
    go_to(at + static_cast<int>(in.size()));
    if (on_change) on_change();
}

void TextEditor::undo() {
    if (const auto edit = history_.undo()) {
        apply(*edit, false);
    } else {
        bell();
    }
}

void TextEditor::redo() {
    if (const auto edit = history_.redo()) {
        apply(*edit, true);
    } else {
        bell();
    }
}

void TextEditor::again() {
    const TextEdit *last = history_.last();
    if (!last) return;
    const TextEdit edit = *last;
    history_.end_step();
    const int here = insert_position();
    if (edit.inserted.empty()) {
        buffer_.remove(std::max(0, here - static_cast<int>(edit.deleted.size())), here);
    } else {
        buffer_.insert(here, edit.inserted.c_str());
        go_to(here + static_cast<int>(edit.inserted.size()));
    }
}

void TextEditor::go_to(int position) {
    insert_position(position);
    show_insert_position();
}

std::vector<std::string> TextEditor::lines_in_view() const {
    std::vector<std::string> lines;
    for (int n = 0; n < mNVisibleLines && mLineStarts[n] >= 0; ++n) {
        const int start = mLineStarts[n];
        const int end = line_end(start, true);
        std::string line;
        for (int at = start; at < end; ++at) line += buffer_.byte_at(at);
        lines.push_back(std::move(line));
    }
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

int TextEditor::handle(int event) {
    if (event == FL_PUSH) {
        history_.end_step();
        Fl::focus(this);
    }
    const int done = editable ? Fl_Text_Editor::handle(event) : Fl_Text_Display::handle(event);
    wrap_long_lines();
    return done;
}

}  // namespace brindle::tk
