#include "drawing/label_texts.hpp"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

#include "drawing/text.hpp"

namespace brindle {

namespace {

int up(double pixels) {
    return static_cast<int>(std::ceil(pixels));
}

}  // namespace

LabelTexts::LabelTexts(const TreeFonts &fonts) : fonts_{fonts.category, fonts.tag, fonts.word} {
    for (const QFont &font : fonts_) {
        const QFontMetricsF metrics(font);
        heights_.above = std::max(heights_.above, up(metrics.ascent()));
        heights_.below = std::max(heights_.below, up(metrics.descent()));
        heights_.capitals = std::max(heights_.capitals, up(metrics.capHeight()));
    }
}

const LabelText &LabelTexts::text(const Label *label, TextKind kind) {
    auto &texts = texts_[static_cast<std::size_t>(kind)];
    const auto found = texts.find(label);
    if (found != texts.end()) return found->second;
    if (texts.size() >= most_kept) texts.clear();
    const QString text = to_shown(label->view());
    return texts.emplace(label, LabelText{text, QFontMetricsF(font(kind)).horizontalAdvance(text)})
        .first->second;
}

CachedMeasure::Measure widest_measure(const TreeFonts &fonts) {
    const QString sample = QStringLiteral("The quick brown fox jumps over 0123456789 lazy DOGS-NP|VP_(x,y)");
    const auto width = [&](const QFont &font) { return QFontMetricsF(font).horizontalAdvance(sample); };
    const QFont widest = std::max({fonts.category, fonts.tag, fonts.word},
                                  [&](const QFont &a, const QFont &b) { return width(a) < width(b); });
    return [metrics = QFontMetricsF(widest)](std::string_view text) {
        return up(metrics.horizontalAdvance(to_shown(text)));
    };
}

}  // namespace brindle
