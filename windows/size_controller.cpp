#include "windows/size_controller.hpp"

#include "windows/number_slider.hpp"
#include "windows/tree_window.hpp"

namespace brindle {

SizeController::SizeController(TreeWindow &owner) : CommandWindow(owner, "Tree Size Controls") {
    add_message("   Set parameters for tree drawing that will");
    new_row();
    add_message("   be associated with the current font-size");
    const auto add_size = [this](const char *message, int max) {
        new_row();
        add_message(message);
        new_row();
        return add_slider("#", 1, max, 1, 165);
    };
    vertical_ = add_size("Vertical distance between nodes:", 200);
    sister_ = add_size("Default distance between sister nodes:", 200);
    minimum_ = add_size("Minimum distance between labels:", 100);
    thickness_ = add_size("Line thickness:", 10);
    new_row();
    add_button("Apply", [this] {
        LayoutParams params = window_in_hand().params();
        apply_size_sliders(params,
                           {vertical_->value(), sister_->value(), minimum_->value(), thickness_->value()});
        window_in_hand().set_params(params);
    });
    add_button("Reset", [this] { set_sliders(default_size_sliders(window_in_hand().params().font_scale)); });
    add_cancel();
}

void SizeController::open_at(QPoint place) {
    hide();
    show_sizes();
    show_at(place);
}

void SizeController::show_sizes() {
    set_sliders(size_sliders(window_in_hand().params()));
}

void SizeController::set_sliders(const SizeSliders &sizes) {
    vertical_->set_value(sizes.vertical);
    sister_->set_value(sizes.sister);
    minimum_->set_value(sizes.minimum);
    thickness_->set_value(sizes.thickness);
}

}  // namespace brindle
