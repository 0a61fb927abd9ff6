#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    // Widgets need a display; the offscreen platform is one that every machine has.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
