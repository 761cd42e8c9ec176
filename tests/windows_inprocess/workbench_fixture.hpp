#pragma once
// The workbench on a corpus of three trees, in the test's own process.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include <functional>
#include <utility>

#include "support/test_corpus.hpp"
#include "windows/main_window.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

inline const char *const small_trees =
    "* ( (S|s(d1,d2) (NP|john NNP/John) (VP VBZ/sleeps)) )\n"
    "( (S (NP NNP/Mary) (VP VBZ/sees (NP NNP/John))) )\n"
    "* ( (S|s(d1,d2) (NP|mary NNP/Mary) (VP|walks VBZ/walks)) )\n";

class WorkbenchTest : public testing::Test {
  protected:
    WorkbenchTest() {
        corpus.name = "small.trees";
        bench.main_window().show();
    }
    TreeWindow &open() {
        TreeWindow &window = bench.open_tree_window();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        return window;
    }
    // The entry of the menu bar; what fills when it is opened is opened.
    static QAction *entry(QMainWindow &window, const QStringList &path) {
        QList<QAction *> actions = window.menuBar()->actions();
        QAction *found = nullptr;
        for (const QString &name : path) {
            found = nullptr;
            for (QAction *action : actions)
                if (QString(action->text()).remove('&') == name) found = action;
            if (!found) return nullptr;
            if (!found->menu()) continue;
            Q_EMIT found->menu()->aboutToShow();
            actions = found->menu()->actions();
        }
        return found;
    }
    // Does something while a notice is up, once it is.
    static void in_notice(std::function<void(QDialog &)> f) {
        QTimer::singleShot(0, [f = std::move(f)] {
            auto *notice = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(notice, nullptr);
            f(*notice);
            if (notice->isVisible()) notice->reject();
        });
    }

    test::TestCorpus corpus{small_trees};
    Workbench bench{corpus};
};

}  // namespace brindle
