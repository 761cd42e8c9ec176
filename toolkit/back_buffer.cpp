#include <algorithm>

#include "toolkit/canvas_impl.hpp"

namespace brindle::tk {

BackBuffer::~BackBuffer() {
    release();
}

void BackBuffer::release() {
    if (!pixmap_) return;
    draw_.reset();
    XFreeGC(x_display(), gc_);
    XFreePixmap(x_display(), pixmap_);
    pixmap_ = None;
}

void BackBuffer::fit(Size size) {
    size = {std::max(size.w, 1), std::max(size.h, 1)};
    if (pixmap_ && size == size_) return;
    release();
    Display *display = x_display();
    pixmap_ = XCreatePixmap(display, DefaultRootWindow(display), static_cast<unsigned>(size.w),
                            static_cast<unsigned>(size.h), static_cast<unsigned>(fl_visual->depth));
    gc_ = XCreateGC(display, pixmap_, 0, nullptr);
    XSetGraphicsExposures(display, gc_, False);
    draw_.reset(XftDrawCreate(display, pixmap_, fl_visual->visual, fl_colormap));
    size_ = size;
}

}  // namespace brindle::tk
