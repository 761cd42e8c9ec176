#include "drawing/colours.hpp"

#include <algorithm>
#include <cmath>

namespace brindle {
namespace {

// Of the Web Content Accessibility Guidelines 2.1.
double luminance(const QColor &colour) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

bool is_greyish(const QColor &colour) {
    const auto [least, most] = std::minmax({colour.red(), colour.green(), colour.blue()});
    return most - least <= 32;
}

// The first of the colours that can be read there; black or white if none can.
QColor readable(const QColor &ground, std::initializer_list<QColor> colours) {
    for (const QColor &colour : colours)
        if (contrast(colour, ground) >= least_contrast) return colour;
    return contrast(Qt::black, ground) > contrast(Qt::white, ground) ? Qt::black : Qt::white;
}

QColor mixed(const QColor &a, const QColor &b, float share_of_a) {
    const auto mix = [&](float x, float y) { return x * share_of_a + y * (1 - share_of_a); };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()));
}

TreeColours make_colours(const QColor &ground, const QColor &text, const QColor &tag, const QColor &word) {
    TreeColours colours;
    colours.ground = ground;
    colours.category = readable(ground, {text});
    colours.tag = readable(ground, {tag, text});
    colours.word = readable(ground, {word, text});
    colours.branch = mixed(colours.category, ground, 0.6F);
    colours.selected_ground = colours.category;
    colours.selected_text = readable(colours.selected_ground, {ground});
    return colours;
}

}  // namespace

double contrast(const QColor &a, const QColor &b) {
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

TreeColours colours_for(const QPalette &palette) {
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    if (!is_greyish(ground) || !is_greyish(text)) return make_colours(ground, text, text, text);
    const bool dark = luminance(ground) < luminance(text);
    const TreeColours paper = colours_on_paper();
    return dark ? make_colours(ground, text, {0x7f, 0xb4, 0xff}, {0x8f, 0xd4, 0x8f})
                : make_colours(ground, text, paper.tag, paper.word);
}

TreeColours colours_on_paper() {
    return make_colours(Qt::white, Qt::black, {0x1a, 0x4f, 0xa0}, {0x1d, 0x6b, 0x2c});
}

}  // namespace brindle
