#pragma once
// The texts of labels as a picture draws them: converted and measured once for each label and font.
#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QPainter>
#include <QString>

#include <array>

#include <tsl/robin_map.h>

#include "display/text_measure.hpp"
#include "drawing/fonts.hpp"
#include "model/node.hpp"

namespace brindle {

enum class TextKind : int { category, tag, word };
inline constexpr int nr_of_text_kinds = 3;

// Null: the node has none of that kind.
inline const Label *label_of(const Node *node, TextKind kind) {
    return kind == TextKind::category ? node->syn() : kind == TextKind::tag ? node->sem() : node->lex();
}

// Whole pixels from the baseline, the largest of the three fonts.
struct TextHeights {
    int above = 0;     // of a line of text: its ascent
    int below = 0;     // its descent
    int capitals = 0;  // of "H" itself
};

// A label in one font. Glyphs drawn again take half the time of a text drawn again.
struct LabelText {
    QString text;
    double width = 0;
    QList<QGlyphRun> glyphs;
    double glyphs_baseline = 0;  // below the place they are drawn at

    // With the label's font in the painter: as glyphs where pixels are painted, elsewhere as a text.
    void draw(QPainter &painter, QPointF baseline) const;
};

class LabelTexts {
  public:
    explicit LabelTexts(const TreeFonts &fonts);

    const TreeFonts &fonts() const { return fonts_; }
    const QFont &font(TextKind kind) const {
        return kind == TextKind::category ? fonts_.category
               : kind == TextKind::tag    ? fonts_.tag
                                          : fonts_.word;
    }
    TextHeights heights() const { return heights_; }
    // Good until the next call. The label's corpus outlives this object.
    const LabelText &text(const Label *label, TextKind kind);

  private:
    static constexpr std::size_t most_kept = 20'000;

    TreeFonts fonts_;
    std::array<tsl::robin_map<const Label *, LabelText>, nr_of_text_kinds> texts_;
    TextHeights heights_;
};

// One measure for the texts of all kinds: their widths in the widest of the fonts, in whole pixels.
CachedMeasure::Measure widest_measure(const TreeFonts &fonts);

}  // namespace brindle
