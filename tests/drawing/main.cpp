// Runs the tests without a screen, in C.UTF-8.
#include <gtest/gtest.h>

#include <QApplication>

#include <clocale>
#include <cstdlib>

#include "base/text.hpp"

int main(int argc, char **argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    brindle::set_text_locale();
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
