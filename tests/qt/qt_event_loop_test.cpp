#include "platform/qt/qt_event_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>

TEST(QtEventLoop, DoEventsRunsWhatIsPendingAndReturns) {
    platform::QtEventLoop loop;
    bool posted = false;
    bool idle = false;
    const auto post = [&] { posted = true; };
    QMetaObject::invokeMethod(qApp, post, Qt::QueuedConnection);
    QTimer timer;  // there is always more to do, as on a busy network
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { idle = true; });
    timer.start(0);
    loop.DoEvents();
    EXPECT_TRUE(posted);
    EXPECT_TRUE(idle);
}
