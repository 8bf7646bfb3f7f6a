// SPDX-License-Identifier: GPL-3.0-or-later
// The tests of the desktop run inside a QApplication on the offscreen platform,
// and never sound: SDL plays into its dummy driver unless a test picks another.

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    qputenv("SDL_AUDIODRIVER", "dummy");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
