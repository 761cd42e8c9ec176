// Runs the tests without a screen, in C.UTF-8.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "base/text.hpp"

int main(int argc, char **argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    const QTemporaryDir state;  // where windows are remembered
    setenv("XDG_STATE_HOME", state.path().toLocal8Bit().constData(), 1);
    testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    const QApplication application(argc, argv);
    brindle::set_text_locale();
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
