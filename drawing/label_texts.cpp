#include "drawing/label_texts.hpp"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

#include "drawing/text.hpp"

namespace brindle {
namespace {

int up(double pixels) {
    return static_cast<int>(std::ceil(pixels));
}

LabelText laid_out(const QString &text, const QFont &font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid()) return {};
    return {text, line.naturalTextWidth(), layout.glyphRuns(), line.ascent()};
}

}  // namespace

void LabelText::draw(QPainter &painter, QPointF baseline) const {
    if (painter.paintEngine()->type() != QPaintEngine::Raster) return painter.drawText(baseline, text);
    for (const QGlyphRun &run : glyphs) painter.drawGlyphRun(baseline - QPointF(0, glyphs_baseline), run);
}

LabelTexts::LabelTexts(const TreeFonts &fonts) : fonts_(fonts) {
    for (const QFont *font : {&fonts.category, &fonts.tag, &fonts.word}) {
        const QFontMetricsF metrics(*font);
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
    return texts.emplace(label, laid_out(to_shown(label->view()), font(kind))).first->second;
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
