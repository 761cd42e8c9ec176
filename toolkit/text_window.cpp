#include "toolkit/text_window.hpp"

#include <FL/Fl.H>

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "toolkit/font_impl.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/look.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"
#include "toolkit/text_window_impl.hpp"

namespace brindle::tk {

namespace {

constexpr int MEGABYTE = 1 << 20;
constexpr Size PREFERRED{480, 300};

// The face's number in FLTK's table of fonts.
Fl_Font fltk_font(const Face &face) {
    static auto &known = *new std::map<std::string, Fl_Font>;  // FLTK keeps pointers to the names
    const char style = face.bold && face.italic ? 'P' : face.bold ? 'B' : face.italic ? 'I' : ' ';
    const auto next = static_cast<Fl_Font>(FL_FREE_FONT + known.size());
    const auto [entry, is_new] = known.emplace(style + face.family, next);
    if (is_new) Fl::set_font(entry->second, entry->first.c_str());
    return entry->second;
}

}  // namespace

TextWindow::Impl::Impl(Frame &owner) : frame(&owner) {}

void TextWindow::Impl::attach(TextWindow &window, Fl_Group &top) {
    self = &window;
    top.add(editor);
    editor.on_change = [this] {
        modified = true;
        const auto f = on_change;
        if (f) f(*self);
    };
    frame->impl().lay_out();
}

void TextWindow::Impl::move_to(Box box) {
    editor.resize(box.x, box.y, std::max(1, box.w), std::max(1, box.h));
}

Size TextWindow::Impl::preferred() const {
    return {px(PREFERRED.w), px(PREFERRED.h)};
}

Box TextWindow::Impl::screen_box() const {
    const Point at = frame->impl().origin();
    return {at.x + editor.x(), at.y + editor.y(), editor.w(), editor.h()};
}

TextWindow::TextWindow(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
TextWindow::~TextWindow() = default;

Frame &TextWindow::frame() const {
    return *impl_->frame;
}

void TextWindow::Impl::flush_output() {
    if (waiting.empty()) return;
    const std::size_t whole = waiting.size() - unfinished_tail(waiting);
    const std::string shown = to_display(std::string_view(waiting).substr(0, whole));
    waiting.erase(0, whole);
    if (!shown.empty()) editor.append_quietly(shown, MEGABYTE);
}

void flush_all_output() {
    for (const Frame::Impl *frame : all_frames()) {
        if (frame->text) frame->text->impl().flush_output();
    }
}

void TextWindow::append(std::string_view text) {
    std::string &waiting = impl_->waiting;
    std::ranges::copy_if(text, std::back_inserter(waiting),
                         [](char c) { return c != '\0'; });  // ends FLTK's texts
    if (waiting.size() > MEGABYTE) impl_->flush_output();
}

void TextWindow::insert(std::string_view text) {
    impl_->flush_output();
    TextEditor &editor = impl_->editor;
    const std::string shown = to_display(text);
    const int at = editor.insert_position();
    editor.text_buffer().insert(at, shown.c_str());
    editor.go_to(at + static_cast<int>(shown.size()));
}

std::string TextWindow::text() const {
    impl_->flush_output();
    char *utf8 = impl_->editor.text_buffer().text();
    std::string text = from_display(utf8);
    std::free(utf8);
    return text;
}

void TextWindow::set_text(std::string_view text) {
    impl_->waiting.clear();
    impl_->editor.load(to_display(text));
    impl_->modified = false;
}

bool TextWindow::editable() const {
    return impl_->editor.editable;
}
void TextWindow::set_editable(bool editable) {
    impl_->editor.editable = editable;
}

void TextWindow::set_wrap(bool wrap) {
    impl_->editor.wrap_mode(wrap ? Fl_Text_Display::WRAP_AT_BOUNDS : Fl_Text_Display::WRAP_NONE, 0);
}

void TextWindow::set_font(const Font &font) {
    impl_->editor.textfont(fltk_font(font.impl().face));
    impl_->editor.textsize(px(font_pixels(font.font_scale())));
    impl_->editor.redraw();
}

Colour TextWindow::foreground() const {
    return text_foreground();
}
Colour TextWindow::background() const {
    return text_background();
}

void TextWindow::goto_line(int line) {
    impl_->flush_output();
    Fl_Text_Buffer &buffer = impl_->editor.text_buffer();
    impl_->editor.go_to(buffer.skip_lines(0, std::max(0, line - 1)));
}

int TextWindow::line() const {
    return impl_->editor.text_buffer().count_lines(0, impl_->editor.insert_position()) + 1;
}

void TextWindow::undo() {
    impl_->editor.undo();
}
void TextWindow::redo() {
    impl_->editor.redo();
}
bool TextWindow::modified() const {
    return impl_->modified;
}

void TextWindow::set_on_change(std::function<void(TextWindow &)> callback) {
    impl_->on_change = std::move(callback);
}

void TextWindow::take_focus() {
    Fl::focus(&impl_->editor);
}

}  // namespace brindle::tk
