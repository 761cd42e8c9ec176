#include "drawing/characters.hpp"

#include <QChar>
#include <QFontDatabase>
#include <QRawFont>

namespace brindle {
namespace {

bool is_drawn(char32_t c) {
    const bool variation_selector = (c >= 0xFE00 && c <= 0xFE0F) || (c >= 0xE0100 && c <= 0xE01EF);
    const auto category = QChar::category(c);
    return !variation_selector && !QChar::isSpace(c) && category != QChar::Other_Control &&
           category != QChar::Other_Format;
}

}  // namespace

std::u32string characters_without_font(const CharacterSet &set, const QFont &usual) {
    std::u32string missing = set.characters();
    std::erase_if(missing, [](char32_t c) { return !is_drawn(c); });
    const auto drop_those_of = [&missing](const QFont &font) {
        const QRawFont opened = QRawFont::fromFont(font);
        std::erase_if(missing, [&](char32_t c) { return opened.supportsCharacter(c); });
    };
    drop_those_of(usual);
    for (const QString &family : QFontDatabase::families()) {
        if (missing.empty()) break;
        drop_those_of(QFont(family));
    }
    return missing;
}

}  // namespace brindle
