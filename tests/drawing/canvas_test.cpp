// The canvas as a person uses it, and as it is read aloud.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "support/test_corpus.hpp"
#include "windows/canvas.hpp"

namespace brindle {
namespace {

std::string wide_tree(int words) {
    std::string text = "( (S|claim";
    for (int w = 0; w < words; ++w) text += " (NP|thing (NN/word" + std::to_string(w) + "))";
    return text + ") )";
}

class CanvasTest : public testing::Test {
  protected:
    CanvasTest() {
        canvas.resize(400, 300);
        canvas.on_need = [this] {
            ++asked;
            return Canvas::Shown{root, {}, false};
        };
        canvas.on_press = [this](const QMouseEvent &, const Hit &hit) { hits.push_back(hit); };
        canvas.refresh();
        canvas.show();
        QCoreApplication::processEvents();
    }
    QPointF view_place(const Node *node) {
        return canvas.viewport()->mapFromGlobal(QPointF(canvas.screen_place_of(node)));
    }
    bool in_view(const Node *node) { return canvas.viewport()->rect().contains(view_place(node).toPoint()); }
    void turn_wheel(QPoint at, int angle, Qt::KeyboardModifiers keys) {
        QWheelEvent event(at, canvas.viewport()->mapToGlobal(at), {}, {0, angle}, {}, keys, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(canvas.viewport(), &event);
    }

    test::TestCorpus corpus{wide_tree(40)};
    Node *root = corpus.tree(0).root;
    int asked = 0;
    std::vector<Hit> hits;
    Canvas canvas{nullptr};
};

TEST_F(CanvasTest, a_tree_is_laid_out_once_until_it_changes) {
    EXPECT_EQ(asked, 1);
    canvas.viewport()->repaint();
    canvas.lay_out_now();
    EXPECT_EQ(asked, 1);
    canvas.refresh();
    canvas.refresh();
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 2);
}

TEST_F(CanvasTest, without_a_tree_there_is_a_message) {
    const auto ink = [&] {
        const QImage image = canvas.viewport()->grab().toImage();
        int dark = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) dark += image.pixelColor(x, y).lightness() < 128;
        return dark;
    };
    EXPECT_GT(ink(), 0);
    canvas.clear();
    EXPECT_EQ(ink(), 0);
    EXPECT_EQ(canvas.horizontalScrollBar()->maximum(), 0);
    root = nullptr;
    canvas.set_message("This corpus has no trees.");
    canvas.refresh();
    EXPECT_GT(ink(), 100);
    QTest::mousePress(canvas.viewport(), Qt::LeftButton, {}, {30, 20});
    EXPECT_EQ(hits.at(0).node, nullptr);
}

TEST_F(CanvasTest, zooming_keeps_what_is_under_the_pointer) {
    canvas.make_visible(corpus.at("20.1"));
    const QPointF before = view_place(corpus.at("20.1"));
    turn_wheel(before.toPoint(), 240, Qt::ControlModifier);
    EXPECT_GT(canvas.zoom(), 1.3);
    const QPointF after = view_place(corpus.at("20.1"));
    EXPECT_NEAR(after.x(), before.x(), 1.5);
    canvas.set_zoom(100);
    EXPECT_EQ(canvas.zoom(), 8);
    canvas.fit();
    EXPECT_LT(canvas.zoom(), 1);
    EXPECT_TRUE(in_view(corpus.at("1.1")) && in_view(corpus.at("40.1")));
    EXPECT_EQ(canvas.horizontalScrollBar()->maximum(), 0);
}

TEST_F(CanvasTest, a_node_comes_into_the_middle_only_if_it_is_outside) {
    canvas.make_visible(corpus.at("20"));
    EXPECT_NEAR(view_place(corpus.at("20")).x(), canvas.viewport()->width() / 2.0, 1);
    const int before = canvas.horizontalScrollBar()->value();
    canvas.make_visible(corpus.at("21"));
    EXPECT_EQ(canvas.horizontalScrollBar()->value(), before);
    canvas.make_visible(corpus.at("40"));  // within the limits of the tree
    EXPECT_EQ(canvas.horizontalScrollBar()->value(), canvas.horizontalScrollBar()->maximum());
    EXPECT_TRUE(in_view(corpus.at("40")));
}

TEST_F(CanvasTest, presses_say_what_they_hit_at_any_zoom_and_place) {
    for (const double zoom : {1.0, 0.5, 2.3}) {
        canvas.set_zoom(zoom);
        for (const char *path : {"3", "20", "37.1"}) {
            canvas.make_visible(corpus.at(path));
            const QRect box = canvas.view_box_of(canvas.picture().category_box(corpus.at(path)));
            QTest::mousePress(canvas.viewport(), Qt::MiddleButton, {}, box.center());
            EXPECT_EQ(hits.back().node, corpus.at(path)) << zoom << ' ' << path;
        }
    }
}

TEST_F(CanvasTest, empty_canvas_is_dragged_and_the_wheel_scrolls) {
    QScrollBar &bar = *canvas.horizontalScrollBar();
    turn_wheel({50, 50}, -120, Qt::ShiftModifier);
    EXPECT_EQ(bar.value(), 60);
    QTest::mousePress(canvas.viewport(), Qt::LeftButton, {}, {200, 270});
    EXPECT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].node, nullptr);
    QMouseEvent move(QEvent::MouseMove, QPointF(150, 270), canvas.viewport()->mapToGlobal(QPointF(150, 270)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(canvas.viewport(), &move);
    EXPECT_EQ(bar.value(), 110);
    QTest::mouseRelease(canvas.viewport(), Qt::LeftButton, {}, {150, 270});
    QCoreApplication::sendEvent(canvas.viewport(), &move);
    EXPECT_EQ(bar.value(), 110);
}

// Remembers what was painted.
struct PaintedRegion : QObject {
    bool eventFilter(QObject *, QEvent *event) override {
        if (event->type() == QEvent::Paint) region |= static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion region;
};

TEST_F(CanvasTest, scrolling_paints_what_comes_into_view) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&canvas));
    QCoreApplication::processEvents();
    canvas.scroll_by(5, 0);  // the first painting is of the whole
    QCoreApplication::processEvents();
    PaintedRegion painted;
    canvas.viewport()->installEventFilter(&painted);
    canvas.scroll_by(30, 0);
    QCoreApplication::processEvents();
    EXPECT_FALSE(painted.region.isEmpty());
    EXPECT_LE(painted.region.boundingRect().width(), 30);
    const QImage scrolled = canvas.grab().toImage();
    canvas.viewport()->repaint();
    EXPECT_EQ(scrolled, canvas.grab().toImage());
}

TEST_F(CanvasTest, colours_follow_the_palette_unless_they_are_given) {
    const auto ground = [&] { return canvas.viewport()->grab().toImage().pixelColor(2, 2); };
    QPalette dark;
    dark.setColor(QPalette::Base, "#202020");
    dark.setColor(QPalette::Text, "#f0f0f0");
    canvas.setPalette(dark);
    EXPECT_EQ(ground(), QColor("#202020"));
    canvas.set_colours(colours_on_paper());
    canvas.setPalette(QPalette());
    canvas.setPalette(dark);
    EXPECT_EQ(ground(), QColor(Qt::white));
}

TEST_F(CanvasTest, nodes_are_read_aloud_as_items_of_a_tree) {
    QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(&canvas);
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    ASSERT_EQ(tree->childCount(), 1);
    QAccessibleInterface *top = tree->child(0);
    EXPECT_EQ(top->text(QAccessible::Name), u"S, claim"_qs);
    EXPECT_EQ(top->role(), QAccessible::TreeItem);
    EXPECT_EQ(top->parent(), tree);
    ASSERT_EQ(top->childCount(), 40);
    QAccessibleInterface *third = top->child(2);
    EXPECT_EQ(third->parent(), top);
    EXPECT_EQ(top->indexOfChild(third), 2);
    EXPECT_EQ(third->child(0)->text(QAccessible::Name), u"NN, word2"_qs);
    EXPECT_EQ(third->child(1), nullptr);
    EXPECT_TRUE(third->rect().contains(canvas.screen_place_of(corpus.at("3")) - QPoint(0, 3)));
    EXPECT_EQ(tree->childAt(third->rect().center().x(), third->rect().top() + 5), third);
    EXPECT_FALSE(third->state().selected || third->state().offscreen);
    corpus.at("3")->select(true);
    EXPECT_TRUE(third->state().selected);
    EXPECT_TRUE(top->child(39)->state().offscreen);

    canvas.setFocus();
    canvas.set_focus_node(corpus.at("3"));
    EXPECT_EQ(tree->focusChild(), canvas.hasFocus() ? third : nullptr);

    const QAccessible::Id id = QAccessible::uniqueId(third);
    root = corpus.at("2");
    canvas.refresh();
    EXPECT_FALSE(third->isValid());
    EXPECT_EQ(tree->child(0)->text(QAccessible::Name), u"NP, thing"_qs);
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace
}  // namespace brindle
