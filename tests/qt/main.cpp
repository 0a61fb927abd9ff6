#include <gtest/gtest.h>

#include <QTimer>

#include "platform/qt/application.h"

namespace {

/// A test that closes the window for good ends the application's loop, and no dialog of a later
/// test would stay open. Running the loop once resets it.
class FreshLoop : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
        QApplication::exec();
    }
};

}  // namespace

int main(int argc, char** argv) {
    // Widgets need a display. Every machine has the offscreen platform.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application = platform::MakeApplication(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FreshLoop);
    return RUN_ALL_TESTS();
}
