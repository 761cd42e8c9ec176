#pragma once
// The rows of a List and their scrollbar.
#include <string>
#include <vector>

#include "toolkit/item_view.hpp"
#include "toolkit/items.hpp"
#include "toolkit/scroll_widget.hpp"

namespace brindle::tk {

class ListView : public ItemView {
  public:
    explicit ListView(const List::Options &options);
    ~ListView() override { remove(bar_); }

    struct Row {
        std::string text;  // locale
        std::string utf8;
    };
    std::vector<Row> rows;
    List::Callback on_select;
    List::Callback on_activate;

    int selected() const { return selected_; }
    void select(int row);
    void rows_changed();

    // The rows in view with their boxes in the window, px.
    struct ShownRow {
        int row;
        Box box;
    };
    std::vector<ShownRow> shown_rows() const;

    Size control_size() const override;
    bool top_label() const override { return true; }
    std::string value_utf8() const override;
    Fl_Widget *focus_target() override { return this; }
    bool is_field() const override { return true; }
    bool key(const Event &event) override;
    int handle(int event) override;

  protected:
    void place_control(Box box) override;
    void draw_control() override;

  private:
    int row_height() const;
    int row_at_pointer() const;
    void choose(int row);
    void activate_row();
    void update_bar(int start);
    int push();

    List::Options options_;
    ScrollWidget bar_{false};
    int selected_ = -1;
};

}  // namespace brindle::tk
