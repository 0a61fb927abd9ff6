#include "platform/qt/qt_event_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <functional>

TEST(QtEventLoop, DoEventsRunsWhatIsPendingAndReturns) {
    platform::QtEventLoop loop;
    bool posted = false;
    bool idle = false;
    QMetaObject::invokeMethod(
        qApp, [&] { posted = true; }, Qt::QueuedConnection);
    QTimer timer;  // there is always more to do, as on a busy network
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { idle = true; });
    timer.start(0);
    loop.DoEvents();
    EXPECT_TRUE(posted);
    EXPECT_TRUE(idle);
}

TEST(QtEventLoop, DoEventsOftenTakesATurnOnlyEveryFewMilliseconds) {
    platform::QtEventLoop loop;
    int events = 0;
    std::function<void()> post = [&] {
        QMetaObject::invokeMethod(
            qApp, [&] { ++events; }, Qt::QueuedConnection);
    };
    QElapsedTimer time;
    time.start();
    int calls = 0;
    while (time.elapsed() < 200) {
        post();
        const int before = events;
        loop.DoEventsOften();
        calls += events != before;
    }
    loop.DoEvents();
    EXPECT_GE(calls, 2);
    EXPECT_LE(calls, 200 / 5 + 1);
}
