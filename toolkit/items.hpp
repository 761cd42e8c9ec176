#pragma once
// The items of panels. A panel makes and owns them. Labels, values and rows are locale text.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/geometry.hpp"
#include "toolkit/object.hpp"

namespace brindle::tk {

class Panel;
class Frame;
class ItemView;

class Item : public Object {
  public:
    ~Item() override;
    Panel &panel() const { return panel_; }
    Frame &frame() const;
    std::string label() const;
    void set_label(std::string_view label);  // the panel is laid out again
    bool inactive() const;
    void set_inactive(bool inactive);  // an inactive item is drawn grey and takes no input
    Box box() const;                   // in its panel
    Box screen_box() const;
    // Gives the keyboard to the item; a text field then has its text selected.
    void take_focus();

    ItemView &view() const { return *view_; }

  protected:
    Item(Panel &panel, std::unique_ptr<ItemView> view);

  private:
    Panel &panel_;
    std::unique_ptr<ItemView> view_;
};

class Button : public Item {
  public:
    using Callback = std::function<void(Button &)>;
    Button(Panel &panel, std::string_view label, Callback callback);
    void set_callback(Callback callback);
    void press();  // as if it had been clicked; nothing when inactive
};

class Message : public Item {
  public:
    Message(Panel &panel, std::string_view text, bool bold);
    std::string text() const { return label(); }
    void set_text(std::string_view text) { set_label(text); }
};

class TextField : public Item {
  public:
    struct Options {
        int shown = 20;               // characters in view
        int stored = 1024;            // bytes of the value at most
        std::string_view value = {};  // at start
    };
    using Callback = std::function<void(TextField &)>;
    using Completer = std::function<std::string(const std::string &)>;
    TextField(Panel &panel, std::string_view label, Options options, Callback callback);
    std::string value() const;
    void set_value(std::string_view value);  // cut to the stored length
    void set_callback(Callback callback);    // called by Return in the field
    void notify();                           // calls the callback, as Return does
    // Tab asks it to complete the text before it moves on: it gets the text and returns the longer one.
    void set_completer(Completer completer);
};

class NumericField : public Item {
  public:
    struct Options {
        int min = 0;
        int max = 2147483647;
        int value = 0;
        int shown = 6;  // characters in view
    };
    using Callback = std::function<void(NumericField &, int value)>;
    NumericField(Panel &panel, std::string_view label, Options options, Callback callback);
    int value() const;  // what is typed, within min .. max
    void set_value(int value);
    void set_range(int min, int max);
};

// A number that is dragged on a scale or typed into the field before it.
class Slider : public Item {
  public:
    struct Options {
        int min = 0;
        int max = 100;
        int value = 0;
        int width = 130;  // of the scale, pixels
    };
    using Callback = std::function<void(Slider &, int value)>;
    Slider(Panel &panel, std::string_view label, Options options, Callback callback);
    int value() const;
    void set_value(int value);  // kept within the range; does not call the callback
    int min() const;
    int max() const;
    void set_min(int min);  // the value follows when it falls out of the range
    void set_max(int max);
    void set_callback(Callback callback);  // called when the user changes the value
};

// One of several options; shows the current one and drops the others down.
class Choice : public Item {
  public:
    using Callback = std::function<void(Choice &, int value)>;
    Choice(Panel &panel, std::string_view label, std::vector<std::string> options, Callback callback);
    int value() const;  // 0-based
    void set_value(int value);
    std::string option(int n) const;
    void set_callback(Callback callback);
};

class CheckBox : public Item {
  public:
    using Callback = std::function<void(CheckBox &, bool value)>;
    CheckBox(Panel &panel, std::string_view label, bool value, Callback callback);
    bool value() const;
    void set_value(bool value);  // does not call the callback
    void set_callback(Callback callback);
};

// A scrolling list; at most one row is selected.
class List : public Item {
  public:
    struct Options {
        int rows = 6;     // in view
        int width = 300;  // pixels
    };
    using Callback = std::function<void(List &, int row)>;
    List(Panel &panel, std::string_view label, Options options);
    int size() const;
    std::string row(int n) const;
    void add_row(std::string_view text);
    void set_rows(const std::vector<std::string> &rows);  // and nothing selected
    void delete_row(int n);
    void clear();
    int selected() const;  // -1: none
    void select(int n);    // -1: none; scrolls the row into view. Does not call the callbacks
    void set_on_select(Callback callback);
    // Double click or Return on a row.
    void set_on_activate(Callback callback);
};

}  // namespace brindle::tk
