// "Tree Size Controls": the sizes that go with the current font size.
#include "commands/tree_sizes.hpp"

#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"

namespace brindle {

namespace {

void set_sliders(TreeWindow &tw, const SizeSliders &sliders) {
    tw.vdist_slider->set_value(sliders.vertical);
    tw.sisterdist_slider->set_value(sliders.sister);
    tw.mindist_slider->set_value(sliders.minimum);
    tw.thickness_slider->set_value(sliders.thickness);
}

void controls(TreeWindow &tw, tk::MenuItem &) {
    tw.size_controller->hide();
    show_sizes(tw);
    tw.size_controller->set_pinned(true);
    position_frame_from_menu(*tw.size_controller, *tw.prefs_menu, tw);
}

void set_sizes(TreeWindow &tw, tk::Button &) {
    apply_size_sliders(tw, {tw.vdist_slider->value(), tw.sisterdist_slider->value(),
                            tw.mindist_slider->value(), tw.thickness_slider->value()});
    tree_GUI_repaint(tw);
}

void reset_sizes(TreeWindow &tw, tk::Button &) {
    set_sliders(tw, default_size_sliders(tw.font_scale));
}

}  // namespace

void show_sizes(TreeWindow &tw) {
    set_sliders(tw, size_sliders(tw));
}

void install_tree_sizes(Commands &table) {
    table.controls = controls;
    table.set_sizes = set_sizes;
    table.reset_sizes = reset_sizes;
}

}  // namespace brindle
