// Trees painted into images: where ink is, and where none is.
#include <gtest/gtest.h>

#include <QImage>

#include <cmath>

#include "drawing/fonts.hpp"
#include "drawing/tree_picture.hpp"
#include "model/traversal.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

using test::TestCorpus;

constexpr const char *cats =
    "( (S|claim (NP|person(x) DT/the NN|animal/cats) (VP (VBP/chase) (NP NNS|small_animals_that_flee/mice)) "
    "./.) )";

struct Painted {
    explicit Painted(std::string_view text, double pixels = 1) : corpus(text), scale(pixels) { paint(); }
    void paint() {
        picture.lay_out(corpus.tree(0).root, params, true);
        image = QImage((picture.size() * scale).toSize(), QImage::Format_RGB32);
        paint_part(image, image.rect());
    }
    void paint_part(QImage &to, const QRect &clip) const {
        QPainter painter(&to);
        painter.setClipRect(clip);
        painter.fillRect(clip, colours.ground);
        painter.scale(scale, scale);
        picture.paint(painter, QRectF(QPointF(clip.topLeft()) / scale, QSizeF(clip.size()) / scale), colours,
                      true);
    }
    // What of the box is painted; and what of it has exactly that colour.
    QRect ink(const QRectF &box) const {
        QRect found;
        const QRect whole = box.toAlignedRect() & image.rect();
        for (int y = whole.top(); y <= whole.bottom(); ++y)
            for (int x = whole.left(); x <= whole.right(); ++x)
                if (image.pixelColor(x, y) != colours.ground) found |= QRect(x, y, 1, 1);
        return found;
    }
    QRect ink(const QRectF &box, const QColor &colour) const {
        QRect found;
        const QRect whole = box.toAlignedRect() & image.rect();
        for (int y = whole.top(); y <= whole.bottom(); ++y)
            for (int x = whole.left(); x <= whole.right(); ++x)
                if (image.pixelColor(x, y) == colour) found |= QRect(x, y, 1, 1);
        return found;
    }

    TestCorpus corpus;
    double scale;  // pixels of the image to one of the layout
    LayoutParams params;
    TreePicture picture{find_tree_fonts(start_font, 2).value()};
    TreeColours colours = colours_on_paper();
    QImage image;
};

QPalette palette(const QColor &base, const QColor &text) {
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    return palette;
}

TEST(colours, every_text_can_be_read) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(QColor("#767676"), Qt::white), 4.54, 0.01);
    for (const auto &[base, text] : {std::pair("#ffffff", "#000000"),
                                     {"#1e1e1e", "#e6e6e6"},
                                     {"#000000", "#ffffff"},
                                     {"#b8b8b8", "#101010"},
                                     {"#000080", "#ffff00"},
                                     {"#808080", "#909090"}}) {
        const TreeColours c = colours_for(palette(QColor(base), QColor(text)));
        for (const QColor &colour : {c.category, c.tag, c.word})
            EXPECT_GE(contrast(colour, c.ground), least_contrast)
                << base << ' ' << colour.name().toStdString();
        EXPECT_GE(contrast(c.selected_text, c.selected_ground), least_contrast) << base;
        EXPECT_GE(contrast(c.branch, c.ground), 3) << base;
    }
    for (const TreeColours &c : {colours_on_paper(), colours_for(palette("#ffffff", "#000000")),
                                 colours_for(palette("#1e1e1e", "#e6e6e6"))})
        EXPECT_TRUE(c.category != c.tag && c.tag != c.word && c.word != c.category);
    EXPECT_EQ(colours_for(palette("#000080", "#ffff00")).tag, QColor("#ffff00"));
}

TEST(picture, texts_stand_centred_where_the_hit_test_finds_them) {
    Painted p(cats);
    for_each_in_subtree(p.corpus.tree(0).root, [&](Node *node) {
        const QPointF place = p.picture.place_of(node);
        const QRect ink = p.ink(p.picture.category_box(node), p.colours.category);
        ASSERT_FALSE(ink.isEmpty());
        EXPECT_NEAR(QRectF(ink).center().x(), place.x(), 2);
        EXPECT_EQ(p.picture.hit(ink.center()).node, node);
        if (!node->sem()) return;
        const QRectF box = p.picture.node_box(node);
        const QRect tag = p.ink(box.adjusted(0, p.picture.text_height() + 3, 0, 0));
        EXPECT_NEAR(QRectF(tag).center().x(), place.x(), 2);
        EXPECT_EQ(p.picture.hit(tag.center()).node, node);
        EXPECT_EQ(p.picture.hit(tag.center()).mode, InfoMode::sem);
        EXPECT_GT(tag.width(), box.width() - 4);
    });
}

TEST(picture, it_is_the_same_when_painted_in_parts) {
    Painted p(cats, 1.5);
    p.corpus.at("1")->select(true);
    p.paint();
    QImage parts(p.image.size(), QImage::Format_RGB32);
    for (int y = 0; y < parts.height(); y += 37)
        for (int x = 0; x < parts.width(); x += 50) p.paint_part(parts, QRect(x, y, 50, 37) & parts.rect());
    int difference = 0;  // clipped lines are rounded a little otherwise
    for (int y = 0; y < parts.height(); ++y)
        for (int x = 0; x < parts.width(); ++x)
            difference = std::max(
                difference, std::abs(parts.pixelColor(x, y).green() - p.image.pixelColor(x, y).green()));
    EXPECT_LE(difference, 8);
}

TEST(picture, selected_nodes_are_inverse) {
    Painted p(cats);
    Node *node = p.corpus.at("1.2");
    const QRectF box = p.picture.node_box(node);
    EXPECT_TRUE(p.ink(box, p.colours.selected_text).contains(box.toRect()));  // white ground
    node->select(true);
    p.paint();
    const QRect dark = p.ink(box, p.colours.selected_ground);
    EXPECT_TRUE(dark.contains(box.toRect().adjusted(0, 0, -1, 0)));
    EXPECT_FALSE(p.ink(box, p.colours.selected_text).isEmpty());
    EXPECT_TRUE(p.ink(box, p.colours.tag).isEmpty());
}

TEST(picture, of_a_tiny_tree_branches_are_left) {
    Painted p(cats, 0.1);
    int dark = 0;
    for (int y = 0; y < p.image.height(); ++y)
        for (int x = 0; x < p.image.width(); ++x) {
            const QColor pixel = p.image.pixelColor(x, y);
            EXPECT_LT(pixel.saturation(), 5);  // no blue, no green
            dark += pixel.lightness() < 250;
        }
    EXPECT_GT(dark, 10);
}

// The words are as different as their pictures: none is a box.
void expect_ink_of(const char *trees) {
    CharacterSet set;
    set.add(trees);
    if (!characters_without_font(set, QFont()).empty()) GTEST_SKIP() << "no font has these";
    Painted p(trees);
    const auto picture_of = [&](const char *path) {
        const QPointF at = p.picture.place_of(p.corpus.at(path));
        return p.image.copy(QRectF(at.x() - 20, at.y() - 16, 40, 22).toRect());
    };
    EXPECT_NE(picture_of("1"), picture_of("2"));
    for (const char *path : {"1", "2"})
        EXPECT_FALSE(p.ink(p.picture.category_box(p.corpus.at(path)), p.colours.category).isEmpty());
}

TEST(picture, chinese_is_drawn) {
    expect_ink_of("( (S (主) (题)) )");
}
TEST(picture, arabic_is_drawn) {
    expect_ink_of("( (S (اسم) (فعل)) )");
}
TEST(picture, devanagari_is_drawn) {
    expect_ink_of("( (S (क्ष) (वा)) )");
}

}  // namespace
}  // namespace brindle
