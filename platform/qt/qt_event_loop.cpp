#include "platform/qt/qt_event_loop.h"

#include <QCoreApplication>

namespace platform {

void QtEventLoop::DoEvents() {
    ++depth_;
    QCoreApplication::processEvents();  // one iteration; newly posted events wait for the next
    --depth_;
    since_last_turn_.start();
}

void QtEventLoop::DoEventsThrottled() {
    constexpr qint64 kMilliseconds = 5;
    if (since_last_turn_.isValid() && !since_last_turn_.hasExpired(kMilliseconds)) return;
    DoEvents();
}

}  // namespace platform
