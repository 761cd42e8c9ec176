#include "toolkit/frame.hpp"

#include <FL/Fl.H>

#include <algorithm>
#include <utility>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/dispatch.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/look.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/popup.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"
#include "toolkit/text_window_impl.hpp"
#include "toolkit/x_options.hpp"

namespace brindle::tk {

namespace {

constexpr Size START_SIZE{400, 300};

std::vector<Frame::Impl *> &frames() {
    static std::vector<Frame::Impl *> known;
    return known;
}

std::string class_name() {
    const XOptions &options = x_options();
    const std::string &name = options.name.empty() ? options.program : options.name;
    return name.substr(name.rfind('/') + 1);
}

std::string first_title(std::string_view title) {
    const std::string &asked = x_options().title;
    return frames().empty() && !asked.empty() ? asked : std::string(title);
}

std::string one_line(std::string_view text) {
    std::string line;
    for (const char c : clean_message(text)) line += c == '\n' ? ' ' : c;
    return line;
}

}  // namespace

const std::vector<Frame::Impl *> &all_frames() {
    return frames();
}

int live_frames() {
    return static_cast<int>(std::ranges::count_if(frames(), [](const Frame::Impl *frame) {
        return !frame->destroyed && frame->kind == Frame::Impl::Kind::base;
    }));
}

Frame::Impl *frame_of(const Fl_Window *window) {
    for (; window; window = window->window()) {
        for (Frame::Impl *frame : frames()) {
            if (frame->window.get() == window) return frame;
        }
    }
    return nullptr;
}

TopWindow::TopWindow(Frame::Impl &frame, const char *title)
    : Fl_Double_Window(px(START_SIZE.w), px(START_SIZE.h)), impl(frame) {
    end();
    copy_label(title);
    color(look::GROUND);
    resizable(nullptr);
    callback([](Fl_Widget *window, void *) { static_cast<TopWindow *>(window)->impl.close(); });
}

Frame::Impl::Impl(Frame &frame, Frame *frame_owner, std::string_view frame_title, Kind frame_kind)
    : self(frame),
      owner(frame_owner),
      kind(frame_kind),
      id(next_window_id()),
      title(first_title(frame_title)) {
    open_display();
    static const bool named = (Fl_Window::default_xclass(class_name().c_str()), true);
    static_cast<void>(named);
    window = std::make_unique<TopWindow>(*this, to_display(title).c_str());
    frames().push_back(this);
}

Frame::Impl::~Impl() {
    std::erase(frames(), this);
}

Frame::Frame(std::string_view title) : Frame(nullptr, title, FrameKind::base) {}

Frame::Frame(Frame *owner, std::string_view title, FrameKind kind)
    : impl_(std::make_unique<Impl>(*this, owner, title, kind)) {}

Frame::~Frame() {
    impl_->subframes.clear();
    if (impl_->window->shown()) impl_->hide_window();
}

Frame &Frame::add_frame(std::string_view title) {
    return *impl_->subframes.emplace_back(std::unique_ptr<Frame>(new Frame(this, title, FrameKind::base)));
}

CommandFrame &Frame::add_command_frame(std::string_view title) {
    auto frame = std::make_unique<CommandFrame>(*this, title);
    CommandFrame &kept = *frame;
    impl_->subframes.push_back(std::move(frame));
    return kept;
}

Frame *Frame::owner() const {
    return impl_->owner;
}
const std::vector<std::unique_ptr<Frame>> &Frame::subframes() const {
    return impl_->subframes;
}

namespace {

void retire(Frame::Impl &frame) {
    frame.destroyed = true;
    frame.hide_window();
    for (const auto &subframe : frame.subframes) retire(subframe->impl());
}

}  // namespace

void Frame::destroy() {
    if (impl_->destroyed) return;
    retire(*impl_);
    if (!impl_->owner) return;
    auto &siblings = impl_->owner->impl().subframes;
    const auto at = std::ranges::find(siblings, this, &std::unique_ptr<Frame>::get);
    if (at == siblings.end()) return;
    std::shared_ptr<Frame> doomed = std::move(*at);
    siblings.erase(at);
    when_quiet([doomed] {});  // freed with this function
}

Panel &Frame::add_panel(Side side) {
    auto panel = std::make_unique<Panel>(std::make_unique<Panel::Impl>(*this));
    impl_->window->add(panel->impl().group.get());
    impl_->sides.push_back(side);
    return *impl_->panels.emplace_back(std::move(panel));
}

Canvas &Frame::add_canvas() {
    impl_->canvas = std::make_unique<Canvas>(std::make_unique<Canvas::Impl>(*this));
    impl_->canvas->impl().attach(*impl_->canvas, *impl_->window);
    return *impl_->canvas;
}

TextWindow &Frame::add_text_window() {
    impl_->text = std::make_unique<TextWindow>(std::make_unique<TextWindow::Impl>(*this));
    impl_->text->impl().attach(*impl_->text, *impl_->window);
    return *impl_->text;
}

const std::vector<std::unique_ptr<Panel>> &Frame::panels() const {
    return impl_->panels;
}
std::string Frame::title() const {
    return impl_->title;
}

void Frame::set_title(std::string_view title) {
    impl_->title = title;
    impl_->window->copy_label(to_display(title).c_str());
}

void Frame::show_footer(bool shown) {
    impl_->footer_shown = shown;
    impl_->lay_out();
}

std::string Frame::footer() const {
    return from_display(impl_->footer);
}

void Frame::set_footer(std::string_view text) {
    impl_->footer = to_display(one_line(text));
    const Box box = impl_->footer_box();
    impl_->window->damage(FL_DAMAGE_EXPOSE, box.x, box.y, box.w, box.h);
}

bool Frame::busy() const {
    return impl_->busy;
}

void Frame::set_busy(bool busy) {
    impl_->busy = busy;
    const Fl_Cursor pointer = busy ? FL_CURSOR_WAIT : FL_CURSOR_DEFAULT;
    if (impl_->window->shown()) impl_->window->cursor(pointer);
    if (impl_->canvas) impl_->canvas->impl().set_pointer(pointer);
}

void Frame::show() {
    impl_->show_window();
}
void Frame::hide() {
    impl_->hide_window();
}
bool Frame::shown() const {
    return impl_->window->shown() != 0;
}
Point Frame::position() const {
    return unscaled(impl_->origin());
}

void Frame::set_position(Point screen) {
    impl_->placed = true;
    impl_->window->position(px(screen.x), px(screen.y));
}

Size Frame::size() const {
    return {unscaled(impl_->window->w()), unscaled(impl_->window->h())};
}

void Frame::set_size(Size size) {
    impl_->window->size(px(size.w), px(size.h));
    impl_->lay_out();
    impl_->set_size_range();
}

void Frame::fit() {
    const Size fitted = impl_->fitted();
    impl_->window->size(fitted.w, fitted.h);
    impl_->lay_out();
    impl_->set_size_range();
}

void Frame::set_resizable(bool resizable) {
    impl_->resizable = resizable;
    impl_->set_size_range();
}

void Frame::set_on_close(std::function<void(Frame &)> callback) {
    impl_->on_close = std::move(callback);
}

CommandFrame::CommandFrame(Frame &owner, std::string_view title) : Frame(&owner, title, FrameKind::command) {
    add_panel();
}

Panel &CommandFrame::panel() const {
    return *panels().front();
}

}  // namespace brindle::tk
