// The lines of the screen map, widget by widget.
#include "app/ui_map_items.hpp"
#include "windows/number_slider.hpp"
#include "windows_inprocess/workbench_fixture.hpp"

namespace brindle {
namespace {

// The window's lines without the window's number; places are left out, too.
QStringList lines_of(QWidget &window) {
    MapText map;
    write_items(map, window);
    QStringList lines;
    for (const QString &line : map.text().split('\n', Qt::SkipEmptyParts)) {
        QStringList fields = line.split('\t');
        EXPECT_EQ(fields.takeAt(1), QString::number(map_id(window)));
        if (fields[0] != "text") fields.resize(fields.size() - 4);
        lines << fields.join('|');
    }
    return lines;
}

QRect place_of(QWidget &window, const QString &beginning) {
    MapText map;
    write_items(map, window);
    for (const QString &line : map.text().split('\n')) {
        if (!line.startsWith(beginning)) continue;
        const QStringList f = line.split('\t').last(4);
        return {f[0].toInt(), f[1].toInt(), f[2].toInt(), f[3].toInt()};
    }
    return {};
}

// A window whose widgets stand below each other.
struct Column : QWidget {
    template <class Widget>
    Widget &add(Widget *widget, const QString &name = {}) {
        if (!layout()) new QVBoxLayout(this);
        widget->setAccessibleName(name);
        layout()->addWidget(widget);
        return *widget;
    }
};

TEST(ui_map, each_kind_of_item_has_its_label_and_value) {
    Column window;
    window.add(new QPushButton("Save && &go"));
    window.add(new QToolButton);  // without a text
    auto &box = window.add(new QCheckBox("Check:"));
    auto &choice = window.add(new QComboBox, "Which:");
    choice.addItems({"one", "two"});
    auto &field = window.add(new QLineEdit("a\tb"), "Tag:");
    auto &label = window.add(new QLabel("Tag:"));
    label.setBuddy(&field);
    window.add(new QLabel("A message"));
    window.add(new QSpinBox, "Seed:");
    auto &slider = window.add(new NumberSlider("Tree #", 1, 300, 7));
    window.add(new QScrollBar(Qt::Horizontal)).setRange(0, 0);
    window.show();
    box.setChecked(true);
    choice.setCurrentIndex(1);
    field.setEnabled(false);
    const QStringList expected{"item|button|Save & go||active",  "item|checkbox|Check:|1|active",
                               "item|choice|Which:|two|active",  "item|textfield|Tag:|a\\tb|inactive",
                               "item|message|A message||active", "item|numeric|Seed:|0|active",
                               "item|slider|Tree #|7|active",    "item|scrollbar|horizontal|0|inactive"};
    EXPECT_EQ(lines_of(window), expected);
    // What is being typed counts, and the field is where the item begins.
    slider.take_focus();
    QTest::keyClicks(slider.findChild<QLineEdit *>(), "12");
    EXPECT_TRUE(lines_of(window).contains("item|slider|Tree #|12|active"));
    const QRect shown = place_of(window, "item\t" + QString::number(map_id(window)) + "\tslider");
    const QPoint at = slider.mapFromGlobal(QPoint(shown.x() + 10, shown.center().y()));
    EXPECT_TRUE(slider.field_box().contains(at));
}

TEST(ui_map, a_click_in_the_middle_of_a_check_box_ticks_it) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        Column window;
        auto &box = window.add(new QCheckBox("Check:"));
        box.setLayoutDirection(direction);
        window.resize(600, 40);
        window.show();
        const QPoint middle = place_of(window, "item").center();
        QTest::mouseClick(&box, Qt::LeftButton, {}, box.mapFromGlobal(middle));
        EXPECT_TRUE(box.isChecked()) << direction;
    }
}

TEST(ui_map, lists_and_texts_tell_what_is_in_view) {
    Column window;
    auto &list = window.add(new QListWidget, "rows");
    for (int n = 0; n < 1000; ++n) list.addItem("row " + QString::number(n));
    auto &text = window.add(new QPlainTextEdit("first\n\n" + QString(2000, 'x') + "\nlast\n\n"));
    window.resize(300, 300);
    window.show();
    list.setCurrentRow(500);
    list.scrollToItem(list.item(500), QAbstractItemView::PositionAtTop);
    QStringList lines = lines_of(window);
    EXPECT_EQ(lines[0], "item|list|rows|row 500|active");
    EXPECT_EQ(lines[1], "row|rows|row 500|selected");
    EXPECT_EQ(lines[2], "row|rows|row 501|-");
    EXPECT_LT(lines.size(), 60);
    const auto at = lines.indexOf("item|textwindow|||active");
    EXPECT_EQ(lines[at + 1], "text|first");
    EXPECT_EQ(lines[at + 2], "text|");
    EXPECT_TRUE(lines[at + 3].startsWith("text|xxx")) << "wrapped";
    EXPECT_LT(lines[at + 3].size(), 200);
    text.setReadOnly(true);
    text.moveCursor(QTextCursor::End);
    lines = lines_of(window);
    EXPECT_TRUE(lines.contains("item|textwindow|||inactive"));
    EXPECT_EQ(lines.last(), "text|last") << "empty lines at the end are left out";
}

TEST(ui_map, what_is_scrolled_away_is_not_there) {
    QScrollArea area;
    auto *inner = new Column;
    inner->add(new QPushButton("Top"));
    inner->add(new QWidget).setFixedHeight(2000);
    inner->add(new QPushButton("Bottom"));
    area.setWidget(inner);
    area.resize(200, 200);
    area.show();
    EXPECT_TRUE(lines_of(area).contains("item|button|Top||active"));
    EXPECT_FALSE(lines_of(area).contains("item|button|Bottom||active"));
    area.ensureWidgetVisible(inner->findChildren<QPushButton *>().last());
    EXPECT_FALSE(lines_of(area).contains("item|button|Top||active"));
    EXPECT_TRUE(lines_of(area).contains("item|button|Bottom||active"));
}

TEST(ui_map, menus_and_dropped_lists_have_entries) {
    QMenu menu;
    menu.addAction("&Open\tCtrl+O");
    menu.addSeparator();
    menu.addMenu("undo")->addAction("last edit");
    QAction *fit = menu.addAction("fit");
    fit->setCheckable(true);
    fit->setChecked(true);
    menu.addAction("gone")->setVisible(false);
    menu.addAction("dead")->setEnabled(false);
    menu.popup({10, 10});
    EXPECT_EQ(lines_of(menu),
              (QStringList{"item|menuentry|Open||active", "item|menuentry|undo|submenu|active",
                           "item|menuentry|fit|checked|active", "item|menuentry|dead||inactive"}));
    menu.close();
    QComboBox choice;
    choice.addItems({"one", "two"});
    choice.setCurrentIndex(1);
    choice.show();
    choice.showPopup();
    EXPECT_EQ(lines_of(*choice.view()->window()),
              (QStringList{"item|menuentry|one||active", "item|menuentry|two|checked|active"}));
    choice.hidePopup();
}

TEST(ui_map, the_lines_of_a_notice_are_text) {
    Column notice;
    notice.setObjectName("notice");
    notice.add(new QLabel("Cannot write to:\nx"));
    notice.add(new QPushButton("Ok"));
    notice.show();
    EXPECT_EQ(lines_of(notice), (QStringList{"text|Cannot write to:", "text|x", "item|button|Ok||active"}));
}

TEST_F(WorkbenchTest, the_map_has_the_nodes_in_view) {
    TreeWindow &window = open();
    corpus.at("1")->select(true);
    QStringList nodes = lines_of(window).filter("node|");
    ASSERT_EQ(nodes.size(), 5);
    EXPECT_EQ(nodes[0], "node|.|S|s(d1,d2)||-");
    EXPECT_EQ(nodes[1], "node|1|NP|john||selected");
    EXPECT_EQ(nodes[2], "node|1.1|NNP||John|-");
    const QString root = "node\t" + QString::number(map_id(window)) + "\t.\t";
    const QRect before = place_of(window, root);
    window.canvas().set_zoom(2, {0, 0});
    const QRect after = place_of(window, root);
    EXPECT_NEAR(after.width(), 2 * before.width(), 2);
    window.canvas().set_zoom(8, {0, 0});
    nodes = lines_of(window).filter("node|");
    EXPECT_LT(nodes.size(), 5) << "others are out of view";
}

}  // namespace
}  // namespace brindle
