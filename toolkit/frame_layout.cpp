// How a frame's contents share its window.
#include <FL/fl_draw.H>

#include <algorithm>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/look.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text_window_impl.hpp"

namespace brindle::tk {

namespace {

constexpr int CONTENT_MIN = 80;

// Cuts a strip off the box, at its upper or left side.
Box cut_strip(Box &rest, Side side, Size wanted, bool all) {
    Box strip = rest;
    if (all) {
        rest = {rest.x, rest.y, 0, 0};
    } else if (side == Side::top) {
        strip.h = std::min(wanted.h, rest.h);
        rest.y += strip.h;
        rest.h -= strip.h;
    } else {
        strip.w = std::min(wanted.w, rest.w);
        rest.x += strip.w;
        rest.w -= strip.w;
    }
    return strip;
}

}  // namespace

int Frame::Impl::footer_height() const {
    return footer_shown ? line_height() + px(6) : 0;
}

Box Frame::Impl::footer_box() const {
    const int height = footer_height();
    return {0, window->h() - height, window->w(), height};
}

void Frame::Impl::lay_out() {
    Box rest{0, 0, window->w(), window->h() - footer_height()};
    const bool content = canvas || text;
    for (std::size_t n = 0; n < panels.size(); ++n) {
        const bool all = !content && n + 1 == panels.size();
        Panel::Impl &panel = panels[n]->impl();
        panel.move_to(cut_strip(rest, sides[n], panel.wanted(), all));
    }
    if (canvas) canvas->impl().move_to(rest);
    if (text) text->impl().move_to(rest);
    window->redraw();
}

Size Frame::Impl::fitted() const {
    Size content{0, 0};
    if (canvas) content = canvas->impl().preferred();
    if (text) content = text->impl().preferred();
    for (std::size_t n = panels.size(); n-- > 0;) {
        const Size wanted = panels[n]->impl().wanted();
        const bool top = sides[n] == Side::top;
        content = top ? Size{std::max(content.w, wanted.w), content.h + wanted.h}
                      : Size{content.w + wanted.w, std::max(content.h, wanted.h)};
    }
    return {content.w, content.h + footer_height()};
}

Size Frame::Impl::least_size() const {
    const int content = canvas || text ? px(CONTENT_MIN) : 0;
    Size least{content, content + footer_height()};
    for (std::size_t n = 0; n < panels.size(); ++n) {
        const Size wanted = panels[n]->impl().wanted();
        if (sides[n] == Side::top) {
            least.w = std::max(least.w, wanted.w);
            least.h += wanted.h;
        } else {
            least.w += wanted.w;
            least.h = std::max(least.h, wanted.h);
        }
    }
    return least;
}

void Frame::Impl::grow() {
    const Size least = least_size();
    if (!window->shown() || (window->w() >= least.w && window->h() >= least.h)) return;
    window->size(std::max(window->w(), least.w), std::max(window->h(), least.h));
    lay_out();
    set_size_range();
}

void Frame::Impl::set_size_range() {
    if (!resizable || (!canvas && !text)) {
        window->size_range(window->w(), window->h(), window->w(), window->h());
        return;
    }
    const Size least = least_size();
    window->size_range(std::min(least.w, window->w()), std::min(least.h, window->h()));
}

void TopWindow::resize(int x, int y, int w, int h) {
    const bool grown = w != this->w() || h != this->h();
    Fl_Double_Window::resize(x, y, w, h);
    if (grown) impl.lay_out();
}

void TopWindow::draw() {
    Fl_Double_Window::draw();
    if (impl.draw_ground) impl.draw_ground({0, 0, w(), h()});
    if (!impl.footer_shown || !(damage() & ~FL_DAMAGE_CHILD)) return;
    const Box box = impl.footer_box();
    fl_color(look::GROUND);
    fl_rectf(box.x, box.y, box.w, box.h);
    fl_color(look::FAINT);
    fl_xyline(box.x, box.y, box.x + box.w - 1);
    const int margin = px(8);
    draw_text(impl.footer, {box.x + margin, box.y + 1, box.w - 2 * margin, box.h - 1}, Align::left,
              look::TEXT);
}

}  // namespace brindle::tk
