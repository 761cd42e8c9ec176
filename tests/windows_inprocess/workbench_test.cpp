// The windows in one process, without a screen: what the menu bar, the notices, the settings and the look do.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "drawing/colours.hpp"
#include "windows/appearance.hpp"
#include "windows/batch_box.hpp"
#include "windows/bracketing_edit.hpp"
#include "windows/main_window.hpp"
#include "windows/output_window.hpp"
#include "windows/search_box.hpp"
#include "windows/tree_window.hpp"
#include "windows_inprocess/workbench_fixture.hpp"

namespace brindle {
namespace {

TEST_F(WorkbenchTest, the_menu_bar_turns_pages_zooms_and_checks) {
    TreeWindow &window = open();
    entry(window, {"Tree", "Next"})->trigger();
    EXPECT_EQ(window.tree_number(), 1);
    QTest::keyClick(&window.canvas(), Qt::Key_PageUp);
    EXPECT_EQ(window.tree_number(), 2);
    EXPECT_FALSE(entry(window, {"Tree", "Next"})->isEnabled());
    entry(window, {"Tree", "Check"})->trigger();
    EXPECT_FALSE(corpus.tree(2).checked);
    entry(window, {"View", "Zoom in"})->trigger();
    EXPECT_GT(window.canvas().zoom(), 1);
    entry(window, {"View", "Usual size"})->trigger();
    EXPECT_EQ(window.canvas().zoom(), 1);
    window.resize(120, 260);
    QCoreApplication::processEvents();
    QTest::keyClick(&window.canvas(), Qt::Key_F);
    EXPECT_LT(window.canvas().zoom(), 1);
}

TEST_F(WorkbenchTest, the_menu_of_nodes_works_on_the_selected_one) {
    TreeWindow &window = open();
    EXPECT_FALSE(entry(window, {"Node", "Select a node first"})->isEnabled());
    corpus.at("1")->select(true);
    entry(window, {"Node", "clear", "this node"})->trigger();
    EXPECT_EQ(corpus.text(), "(S|s(d1,d2) (NP NNP/John) (VP VBZ/sleeps))");
    entry(window, {"Node", "undo", "undo last edit"})->trigger();
    EXPECT_EQ(corpus.text(), "(S|s(d1,d2) (NP|john NNP/John) (VP VBZ/sleeps))");
    corpus.tree(0).editing = true;
    EXPECT_EQ(entry(window, {"Node", "edit"}), nullptr) << "no command on a tree that an editor holds";
    corpus.tree(0).editing = false;
    for (const char *name :
         {"select", "copy", "filter", "edit syntax", "Export to LaTeX", "information", "mothers"})
        EXPECT_NE(entry(window, {"Node", name}), nullptr) << name;
}

TEST_F(WorkbenchTest, commands_are_undone_and_redone_where_they_happened) {
    TreeWindow &window = open();
    const std::string before = corpus.text();
    entry(window, {"Tree", "Check"})->trigger();
    corpus.at("1")->select(true);
    entry(window, {"Node", "clear", "this tree"})->trigger();
    EXPECT_EQ(corpus.text(), "(S (NP NNP/John) (VP VBZ/sleeps))");
    window.turn_to(2);
    window.begin_copy(*corpus.at("1"));
    window.tag_editor->open_on(corpus.at("1"));
    Q_EMIT window.menuBar()->actions()[1]->menu()->aboutToShow();
    EXPECT_NE(entry(window, {"Edit", "Undo Clear, tree 1"}), nullptr);
    QTest::keyClick(&window.canvas(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(corpus.text(), before);
    EXPECT_EQ(window.tree_number(), 0);
    EXPECT_FALSE(window.tag_editor->isVisible() || bench.copy) << "its node might have gone";
    EXPECT_EQ(window.property("footer").toString(), "Undone: Clear, tree 1");
    QTest::keyClick(&window.canvas(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(corpus.tree(0).checked);
    QTest::keyClick(&window.canvas(), Qt::Key_Y, Qt::ControlModifier);
    QTest::keyClick(&window.canvas(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(corpus.tree(0).checked);
    EXPECT_EQ(corpus.text(), "(S (NP NNP/John) (VP VBZ/sleeps))");
    corpus.tree(1).editing = true;
    in_notice([](QDialog &) {});
    QTest::keyClick(&window.canvas(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(corpus.text(), "(S (NP NNP/John) (VP VBZ/sleeps))");
    corpus.tree(1).editing = false;
}

TEST_F(WorkbenchTest, what_is_remembered_comes_back_in_the_next_window) {
    TreeWindow &first = open();
    first.resize(411, 322);
    first.set_font_name("times-italic");
    first.set_font_scale(0);
    first.canvas().set_zoom(1.5);
    bench.close(first);
    TreeWindow &second = open();
    EXPECT_EQ(second.size(), QSize(411, 322));
    EXPECT_EQ(second.font_name(), "times-italic");
    EXPECT_EQ(second.params().font_scale, 0);
    EXPECT_EQ(second.canvas().zoom(), 1.5);
    second.set_font_name(start_font);
    second.set_font_scale(2);
    second.canvas().set_zoom(1);
    bench.close(second);
}

TEST_F(WorkbenchTest, every_item_has_a_name_that_can_be_read_aloud) {
    TreeWindow &window = open();
    int items = 0;
    QList<QWidget *> tops = {&bench.main_window(), &window};
    for (CommandWindow *own : window.findChildren<CommandWindow *>()) {
        own->show();
        tops << own;
    }
    EXPECT_EQ(tops.size(), 14);
    for (QWidget *top : tops)
        for (QWidget *item : top->findChildren<QWidget *>()) {
            const bool spoken =
                item->focusPolicy() != Qt::NoFocus && item->isVisible() && item->window() == top;
            if (!spoken || qobject_cast<QAbstractScrollArea *>(item->parentWidget()) ||
                qobject_cast<QAbstractSpinBox *>(item->parentWidget()) || qobject_cast<QMenuBar *>(item) ||
                item->focusProxy())
                continue;
            QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(item);
            ASSERT_NE(interface, nullptr);
            EXPECT_FALSE(interface->text(QAccessible::Name).trimmed().isEmpty())
                << item->metaObject()->className() << " in " << top->windowTitle().toStdString();
            ++items;
        }
    EXPECT_GT(items, 70);
}

TEST_F(WorkbenchTest, notices_are_answered_by_keys_and_long_ones_scroll) {
    TreeWindow &window = open();
    const NoticeSpec spec{.message = "\n\033\nReplace?\n",
                          .buttons = {{"Yes", 7}, {"No", 8}, {"Cancel", 9}},
                          .default_value = 8,
                          .keys = {{QKeyCombination(Qt::Key_N), 11}},
                          .silent = true};
    const auto answer_to = [&](Qt::Key key) {
        in_notice([key](QDialog &notice) { QTest::keyClick(&notice, key); });
        return window.ask_at(corpus.at("2"), spec);
    };
    EXPECT_EQ(answer_to(Qt::Key_Return), 8);
    EXPECT_EQ(answer_to(Qt::Key_Escape), 9);
    EXPECT_EQ(answer_to(Qt::Key_N), 11);
    in_notice([](QDialog &notice) {
        EXPECT_EQ(notice.findChild<QLabel *>()->text(), "Replace?");
        for (auto *button : notice.findChildren<QPushButton *>())
            if (button->text() == "Yes") button->click();
    });
    EXPECT_EQ(window.ask(spec), 7);
    in_notice([](QDialog &notice) {
        EXPECT_NE(notice.findChild<QPlainTextEdit *>(), nullptr);
        EXPECT_LE(notice.height(), notice.screen()->availableSize().height());
    });
    window.tell(std::string(std::size_t{1} << 20, 'x'), true);
}

TEST_F(WorkbenchTest, a_run_keeps_hands_off_the_windows_but_for_abort) {
    TreeWindow &window = open();
    bool looked = false;
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(is_busy(window) && is_busy(bench.main_window()) && !is_busy(*window.batch_box));
        QTest::keyClick(&window.canvas(), Qt::Key_PageUp);
        QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
        window.close();
        QTest::keyClick(&window.canvas(), Qt::Key_C, Qt::ControlModifier);
        looked = true;
    });
    int done = 0;
    window.batch_box->run("Working...", [&](brindle::Run &run) {
        while (!run.stopped() && done < 1'000'000) {
            bench.run().dispatch();
            ++done;
        }
        return -1;
    });
    EXPECT_TRUE(looked);
    EXPECT_LT(done, 1'000'000) << "Control-C did not end it";
    EXPECT_EQ(bench.window_of(&window), &window);
    EXPECT_EQ(window.tree_number(), 0);
    EXPECT_FALSE(is_busy(window));
}

TEST_F(WorkbenchTest, output_keeps_its_last_megabyte_and_breaks_endless_lines) {
    OutputWindow &output = bench.main_window().output();
    output.append_text(std::string("caf\xC3"));
    QTest::qWait(10);
    output.append_text("\xA9\n" + std::string(5000, 'x') + "\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return output.toPlainText().endsWith("x\n"); }));
    EXPECT_EQ(output.toPlainText().left(5), u"caf\u00E9\n"_qs);
    for (const QString &line : output.toPlainText().split('\n')) EXPECT_LE(line.size(), 2000);
    for (int n = 0; n < 300'000; ++n) output.append_text("line " + std::to_string(n) + "\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return output.toPlainText().endsWith("line 299999\n"); }));
    EXPECT_LE(output.toPlainText().size(), (1 << 20) + 100);
    EXPECT_TRUE(output.toPlainText().startsWith("line ")) << "whole lines go";
}

TEST_F(WorkbenchTest, the_keys_of_old_edit_the_bracketing) {
    BracketingEdit edit;
    edit.setPlainText("(NP one two\n(VP three");
    edit.go_to_line(2);
    QTest::keyClick(&edit, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(edit.textCursor().blockNumber(), 0);
    QTest::keyClick(&edit, Qt::Key_Slash, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Slash, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_W, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(edit.toPlainText(), "(NP two\n(VP three");
    QTest::keyClick(&edit, Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(edit.toPlainText(), "(NP one two\n(VP three");
    QTest::keyClick(&edit, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(edit.toPlainText().section('\n', 1), "(VP three");
    edit.go_to_line(2);
    QTest::keyClicks(&edit, "z");
    QTest::keyClick(&edit, Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(edit.toPlainText().section('\n', 1), "zz(VP three");
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClick(&edit, Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(edit.toPlainText().section('\n', 1), "zVP three");
}

TEST_F(WorkbenchTest, texts_can_be_read_in_every_theme) {
    for (const Theme theme : {Theme::light, Theme::dark}) {
        use_theme(theme, bench.settings());
        const QPalette palette = QApplication::palette();
        const auto differ = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
            return contrast(palette.color(text), palette.color(ground));
        };
        EXPECT_GE(differ(QPalette::WindowText, QPalette::Window), least_contrast);
        EXPECT_GE(differ(QPalette::Text, QPalette::Base), least_contrast);
        EXPECT_GE(differ(QPalette::ButtonText, QPalette::Button), least_contrast);
        EXPECT_GE(differ(QPalette::HighlightedText, QPalette::Highlight), least_contrast);
        EXPECT_GE(differ(QPalette::ToolTipText, QPalette::ToolTipBase), least_contrast);
        EXPECT_GE(differ(QPalette::PlaceholderText, QPalette::Base), least_contrast);
    }
    use_theme(Theme::platform, bench.settings());
}

TEST(workbench_of_one_tree, has_no_buttons_to_turn_pages) {
    test::TestCorpus corpus("( (S NN/x) )");
    Workbench bench(corpus);
    TreeWindow &window = bench.open_tree_window();
    QStringList shown;
    for (const auto *button : window.findChildren<QToolButton *>())
        if (button->isVisible() && !button->text().isEmpty()) shown << button->text();
    EXPECT_EQ(shown.join(" "), "Close Save Save as Propose");
    QTest::keyClick(&window.canvas(), Qt::Key_PageUp);
    EXPECT_EQ(window.tree_number(), 0);
}

}  // namespace
}  // namespace brindle
