#pragma once
// A panel: items laid out in rows.
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "toolkit/event.hpp"
#include "toolkit/items.hpp"
#include "toolkit/object.hpp"

namespace brindle::tk {

class Frame;

// Where an item goes. Without anything it follows the item before it on its row.
struct Place {
    static constexpr int DEFAULT = -1;
    bool new_row = false;
    int x = DEFAULT;    // of the item's left edge in the panel
    int gap = DEFAULT;  // of the new row to the row above
    int y = DEFAULT;    // of the row's upper edge in the panel
};

inline constexpr Place SAME_ROW{};
// A new row at x, with a gap of that many pixels to the row above.
constexpr Place new_row(int x = 18, int gap = Place::DEFAULT) {
    return {true, x, gap, Place::DEFAULT};
}
// The first item of a panel.
constexpr Place first_at(int x = 18, int y = 18) {
    return {true, x, Place::DEFAULT, y};
}

class Panel : public Object {
  public:
    struct Impl;
    explicit Panel(std::unique_ptr<Impl> impl);
    ~Panel() override;

    Frame &frame() const;

    Button &add_button(std::string_view label, Place place, Button::Callback callback);
    Message &add_message(std::string_view text, Place place, bool bold = false);
    TextField &add_text_field(std::string_view label, Place place, TextField::Options options,
                              TextField::Callback callback = {});
    NumericField &add_numeric_field(std::string_view label, Place place, NumericField::Options options,
                                    NumericField::Callback callback = {});
    Slider &add_slider(std::string_view label, Place place, Slider::Options options,
                       Slider::Callback callback = {});
    Choice &add_choice(std::string_view label, Place place, std::vector<std::string> options,
                       Choice::Callback callback = {});
    CheckBox &add_check_box(std::string_view label, Place place, bool value,
                            CheckBox::Callback callback = {});
    List &add_list(std::string_view label, Place place, List::Options options);

    // In the order they were added.
    const std::vector<std::unique_ptr<Item>> &items() const;
    Item *first_item() const;  // null in an empty panel

    // The button that Return presses; without one it is the button labelled "Ok".
    void set_default_item(Button &button);
    // The button that Escape presses; without one it is the button labelled "Cancel".
    void set_cancel_item(Button &button);
    // Keys that no text field wants, presses and releases, before anything else is done with them, but for
    // Return on a button. Result: the event has been dealt with.
    void set_background_event(std::function<bool(Panel &, const Event &)> callback);
    // The panel takes keystrokes though it has no field.
    void accept_keystrokes(bool accept);

    // Lays the items out; the panel's frame takes over the new size when it is fitted.
    void fit();
    Size size() const;
    void set_size(Size size);  // overrides the fitted size in a direction that is greater than 0
    Point position() const;    // of its upper left corner in the frame

    Impl &impl() const { return *impl_; }

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace brindle::tk
