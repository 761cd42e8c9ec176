#include "drawing/characters.hpp"

#include <QChar>
#include <QFontDatabase>
#include <QRawFont>

#include <algorithm>

namespace brindle {

namespace {

// The installed fonts one after another, each opened when those before it were not enough.
class InstalledFonts {
  public:
    explicit InstalledFonts(const QFont &usual) : opened_{QRawFont::fromFont(usual)} {}

    bool any_has(char32_t c) {
        const auto has = [c](const QRawFont &font) { return font.supportsCharacter(c); };
        if (std::ranges::any_of(opened_, has)) return true;
        while (next_ < families_.size()) {
            opened_.push_back(QRawFont::fromFont(QFont(families_[next_++])));
            if (has(opened_.back())) return true;
        }
        return false;
    }

  private:
    QStringList families_ = QFontDatabase::families();
    qsizetype next_ = 0;
    std::vector<QRawFont> opened_;
};

bool is_drawn(char32_t c) {
    const bool variation_selector = (c >= 0xFE00 && c <= 0xFE0F) || (c >= 0xE0100 && c <= 0xE01EF);
    const auto category = QChar::category(c);
    return !variation_selector && !QChar::isSpace(c) && category != QChar::Other_Control &&
           category != QChar::Other_Format;
}

}  // namespace

std::u32string characters_without_font(const CharacterSet &set, const QFont &usual) {
    std::u32string missing = set.characters();
    InstalledFonts fonts(usual);
    std::erase_if(missing, [&](char32_t c) { return !is_drawn(c) || fonts.any_has(c); });
    return missing;
}

}  // namespace brindle
