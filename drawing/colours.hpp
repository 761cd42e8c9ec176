#pragma once
// The colours of a drawn tree.
#include <QColor>
#include <QPalette>

namespace brindle {

// Every text has a contrast of at least 4.5 : 1 to what it stands on.
struct TreeColours {
    QColor ground;
    QColor category, tag, word;
    QColor branch;
    QColor selected_ground;  // behind the texts of selected nodes
    QColor selected_text;
};

// From 1 to 21, as the Web Content Accessibility Guidelines measure it; and what texts need of it.
double contrast(const QColor &a, const QColor &b);
inline constexpr double least_contrast = 4.5;

// Colours that fit a light or dark palette; where the palette's text and base are not the usual ones (the
// user has named colours), all texts are in that text colour.
TreeColours colours_for(const QPalette &palette);

// Black, blue and green on white.
TreeColours colours_on_paper();

}  // namespace brindle
