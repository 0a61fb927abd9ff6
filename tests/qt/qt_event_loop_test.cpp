#include "platform/qt/qt_event_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

TEST(QtEventLoop, DoEventsRunsPendingEventsAndReturns) {
    platform::QtEventLoop loop;
    bool posted = false;
    bool idle = false;
    const auto post = [&] { posted = true; };
    QMetaObject::invokeMethod(qApp, post, Qt::QueuedConnection);
    QTimer timer;  // there is always another event, as on a busy network
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { idle = true; });
    timer.start(0);
    loop.DoEvents();
    EXPECT_TRUE(posted);
    EXPECT_TRUE(idle);
}

TEST(QtEventLoop, DoEventsThrottledTakesATurnOnlyEveryFewMilliseconds) {
    platform::QtEventLoop loop;
    const auto takes_turn = [&loop] {
        bool turned = false;
        const auto turn = [&] { turned = true; };
        QMetaObject::invokeMethod(qApp, turn, Qt::QueuedConnection);
        loop.DoEventsThrottled();
        const bool took = turned;
        loop.DoEvents();  // the event runs before `turned` is destroyed
        return took;
    };
    EXPECT_TRUE(takes_turn()) << "the first time";
    bool passed_over = false;
    for (int i = 0; i < 1000 && !passed_over; ++i)  // on a busy machine, a turn may come too late
        passed_over = !takes_turn();
    EXPECT_TRUE(passed_over);
    QThread::msleep(6);
    EXPECT_TRUE(takes_turn()) << "after a while";
}
