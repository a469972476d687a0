// The studio tests need a Qt application on a real window system (Xvfb in CI) before any test runs.

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
