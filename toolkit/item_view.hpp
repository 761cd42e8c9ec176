#pragma once
// The FLTK side of a panel item: its label and its control.
#include <FL/Fl_Group.H>

#include <string>
#include <string_view>

#include "toolkit/event.hpp"
#include "toolkit/look.hpp"

namespace brindle::tk {

class Item;

class ItemView : public Fl_Group {
  public:
    explicit ItemView(const char *kind);

    Item *item = nullptr;  // whose view it is; set by the item

    const char *kind() const { return kind_; }  // its name in the screen map
    const std::string &label_utf8() const { return label_; }
    void set_label_utf8(std::string label);

    // Where it is and how it is laid out. The label takes label_column px left of the control.
    virtual int label_room() const;  // what the label asks for, its gap to the control included; 0: no label
    virtual Size control_size() const = 0;
    void place(int left, int top, int row_height, int label_column);
    Box control_box() const { return control_; }
    virtual Box map_box() const { return control_; }  // what a test would click on
    // How high the item is at least, whatever its control.
    virtual int least_height() const;
    virtual bool top_label() const { return false; }  // the label is at the control's first line

    virtual std::string value_utf8() const { return {}; }
    // The widget that gets its keys; null: it never has the keyboard.
    virtual Fl_Widget *focus_target() { return nullptr; }
    // Its keys are text: nobody sees them before it does.
    virtual bool takes_text() const { return false; }
    // Whether Tab and an opening frame stop here first.
    virtual bool is_field() const { return takes_text(); }
    // It gets the keyboard by Tab, by opening or by a call.
    virtual void focused() {}
    // What has been typed but not confirmed becomes the value.
    virtual void commit() {}
    // A key while it has the keyboard, before its widget sees it. Result: dealt with.
    virtual bool key(const Event &event);

    void draw() override;
    int handle(int event) override;

  protected:
    virtual void draw_control() {}
    virtual void place_control(Box) {}
    // The label's place; the default is left of the control.
    virtual Box label_box() const;
    bool has_focus();
    bool over() const { return over_; }
    Fl_Color text_colour() const { return active_r() ? look::TEXT : look::GREY_TEXT; }
    virtual bool bold_label() const { return false; }

  private:
    const char *kind_;
    std::string label_;
    Box control_;
    bool over_ = false;  // the pointer is on it
};

}  // namespace brindle::tk
