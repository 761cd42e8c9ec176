#pragma once
// Fonts by family name and scale. Texts are in the locale's encoding; sizes are unscaled pixels.
#include <memory>
#include <string>
#include <string_view>

namespace brindle::tk {

inline constexpr int FONT_SCALES = 4;  // small, medium, large, extra-large

// Pixel height of a scale 0..3: 11, 13, 15, 19.
int font_pixels(int font_scale);

class Font {
  public:
    struct Impl;
    explicit Font(std::unique_ptr<Impl> impl);
    ~Font();
    Font(const Font &) = delete;
    Font &operator=(const Font &) = delete;

    const std::string &name() const;  // the name it was found by
    int font_scale() const;           // 0..3

    // Advance width of the text.
    int width(std::string_view text) const;
    int height_of_h() const;  // height of the string "H" as a line of text: ascent + descent of the font
    int ascent() const;
    int descent() const;

    Impl &impl() const { return *impl_; }

  private:
    std::unique_ptr<Impl> impl_;
};

// The font of that name ("lucidasans-bold", "times-italic", ... or a family that fontconfig knows, with
// -bold, -italic, ... or nothing after it) at a scale 0..3; null when there is no such font. The toolkit owns
// it for good. Opens the display.
const Font *find_font(std::string_view name, int font_scale);

// The font of labels and buttons, at the scale nearest to its size. Never null.
const Font *default_font();

}  // namespace brindle::tk
