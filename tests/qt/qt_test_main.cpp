// Runs the window's tests in a QApplication: on the offscreen platform unless the environment
// names another (the X server of the Xvfb run).
#include <QApplication>

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char **argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
