// "Tree Size Controls".
#include "gui/command_windows.hpp"

namespace brindle {

namespace {

struct SizeSlider {
    const char *message;
    int max;
    tk::Slider *TreeWindow::*field;
};

constexpr SizeSlider slider_entries[] = {
    {"Vertical distance between nodes:", 200, &TreeWindow::vdist_slider},
    {"Default distance between sister nodes:", 200, &TreeWindow::sisterdist_slider},
    {"Minimum distance between labels:", 100, &TreeWindow::mindist_slider},
    {"Line thickness:", 10, &TreeWindow::thickness_slider},
};

}  // namespace

void create_size_controller(TreeWindow &tw) {
    tw.size_controller = &tw.frame->add_command_frame("Tree Size Controls");
    tk::Panel &panel = tw.size_controller->panel();
    panel.add_message("   Set parameters for tree drawing that will", tk::first_at());
    panel.add_message("   be associated with the current font-size", tk::new_row(18, 5));
    for (const SizeSlider &entry : slider_entries) {
        panel.add_message(entry.message, tk::new_row());
        tw.*entry.field = &panel.add_slider("#", tk::new_row(18, 5),
                                            {.min = 1, .max = entry.max, .value = 1, .width = 165});
    }
    panel.add_button("Apply", tk::new_row(), button_callback(&Commands::set_sizes));
    panel.add_button("Reset", {}, button_callback(&Commands::reset_sizes));
    add_cancel(*tw.size_controller);
    panel.accept_keystrokes(true);
    fit_with_title(*tw.size_controller);
}

}  // namespace brindle
