// Text fields and numeric fields.
#include <FL/Fl.H>

#include <algorithm>
#include <charconv>
#include <utility>

#include "toolkit/entry.hpp"
#include "toolkit/item_view.hpp"
#include "toolkit/items.hpp"
#include "toolkit/panel_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"

namespace brindle::tk {

namespace {

// What the two kinds of fields share: an entry behind a label.
class FieldView : public ItemView {
  public:
    FieldView(const char *kind, int shown, int stored, bool digits)
        : ItemView(kind), entry(stored, digits), shown_(shown) {
        add(entry);
    }
    ~FieldView() override { remove(entry); }

    Entry entry;

    Size control_size() const override { return {entry_width(shown_), px(look::CONTROL)}; }
    std::string value_utf8() const override { return entry.utf8(); }
    Fl_Widget *focus_target() override { return &entry; }
    bool takes_text() const override { return true; }
    void focused() override { entry.select_all(); }

  protected:
    void place_control(Box box) override { entry.resize(box.x, box.y, box.w, box.h); }

  private:
    int shown_;
};

class TextFieldView : public FieldView {
  public:
    TextFieldView(int shown, int stored) : FieldView("textfield", shown, stored, false) {}
    TextField::Callback callback;
    TextField::Completer completer;

    bool key(const Event &event) override {
        if (event.code == CODE_RETURN && callback) {
            static_cast<TextField &>(*item).notify();
            return true;
        }
        return event.code == '\t' && !event.shift && !event.control && complete();
    }

  private:
    bool complete() {
        if (!completer) return false;
        const std::string old = from_display(entry.utf8());
        const std::string longer = completer(old);
        if (longer == old) return false;
        entry.set_utf8(to_display(longer));
        return true;
    }
};

class NumericView : public FieldView {
  public:
    explicit NumericView(const NumericField::Options &options)
        : FieldView("numeric", options.shown, 20, true), min(options.min), max(options.max) {
        set(options.value);
        entry.on_left = [this] { commit(); };
    }
    int min;
    int max;
    NumericField::Callback callback;

    void set(int value) {
        value_ = std::clamp(value, min, std::max(min, max));
        entry.set_utf8(std::to_string(value_));
    }
    int typed() const {
        const std::string text = entry.utf8();
        long value = value_;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return static_cast<int>(std::clamp<long>(value, min, std::max(min, max)));
    }
    void commit() override {
        const int old = value_;
        set(typed());
        const auto f = callback;
        if (f && value_ != old) f(static_cast<NumericField &>(*item), value_);
    }
    bool key(const Event &event) override {
        const int step = event.code == EVENT_UP ? 1 : event.code == EVENT_DOWN ? -1 : 0;
        if (event.code == CODE_RETURN) commit();
        if (!step) return false;
        entry.set_utf8(std::to_string(std::clamp(typed() + step, min, std::max(min, max))));
        commit();
        return true;
    }

  private:
    int value_ = 0;
};

TextFieldView &text_view(const Item &item) {
    return static_cast<TextFieldView &>(item.view());
}
NumericView &numeric_view(const Item &item) {
    return static_cast<NumericView &>(item.view());
}

}  // namespace

TextField::TextField(Panel &panel, std::string_view label, Options options, Callback callback)
    : Item(panel, std::make_unique<TextFieldView>(options.shown, options.stored)) {
    set_label(label);
    set_value(options.value);
    set_callback(std::move(callback));
}

std::string TextField::value() const {
    return from_display(text_view(*this).entry.utf8());
}

void TextField::set_value(std::string_view value) {
    Entry &entry = text_view(*this).entry;
    const auto stored = static_cast<std::size_t>(entry.stored());
    entry.set_utf8(to_display(value.substr(0, stored)));
    if (Fl::focus() == &entry) entry.select_all();
}

void TextField::set_callback(Callback callback) {
    text_view(*this).callback = std::move(callback);
}

void TextField::notify() {
    const auto f = text_view(*this).callback;
    if (f) f(*this);
}

void TextField::set_completer(Completer completer) {
    text_view(*this).completer = std::move(completer);
}

NumericField::NumericField(Panel &panel, std::string_view label, Options options, Callback callback)
    : Item(panel, std::make_unique<NumericView>(options)) {
    set_label(label);
    numeric_view(*this).callback = std::move(callback);
}

int NumericField::value() const {
    return numeric_view(*this).typed();
}
void NumericField::set_value(int value) {
    numeric_view(*this).set(value);
}

void NumericField::set_range(int min, int max) {
    NumericView &view = numeric_view(*this);
    view.min = min;
    view.max = max;
    view.set(view.typed());
}

}  // namespace brindle::tk
