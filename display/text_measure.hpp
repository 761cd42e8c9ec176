#pragma once
// How wide labels are, as the layout asks for it.
#include <functional>
#include <string_view>

#include <tsl/robin_map.h>

#include "model/label.hpp"

namespace brindle {

// The widths of labels in one font, in pixels.
struct TextMeasure {
    virtual ~TextMeasure() = default;
    virtual int width(const Label *label) = 0;
};

// Every byte of a text is equally wide.
class ByteMeasure : public TextMeasure {
  public:
    explicit ByteMeasure(int pixels_a_byte) : pixels_a_byte_(pixels_a_byte) {}
    int width(const Label *label) override { return static_cast<int>(label->size) * pixels_a_byte_; }

  private:
    int pixels_a_byte_;
};

// Measures each label of one corpus once: its labels are interned and live as long as it does, so an answer
// stays good as long as the font.
class CachedMeasure : public TextMeasure {
  public:
    using Measure = std::function<int(std::string_view)>;

    explicit CachedMeasure(Measure measure) : measure_(std::move(measure)) {}
    int width(const Label *label) override {
        const auto [at, is_new] = widths_.try_emplace(label, 0);
        if (is_new) at.value() = measure_(label->view());
        return at->second;
    }

    // Another font: what was measured is forgotten.
    void set_measure(Measure measure) {
        measure_ = std::move(measure);
        widths_.clear();
    }

  private:
    Measure measure_;
    tsl::robin_map<const Label *, int> widths_;
};

}  // namespace brindle
