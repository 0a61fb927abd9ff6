#include "platform/qt/qt_event_loop.h"

#include <QAbstractEventDispatcher>

namespace platform {

void QtEventLoop::DoEvents() {
    // One turn of some hosts' loops takes only the most urgent kind of what is pending, hence
    // several; they are counted because a busy network always has more.
    constexpr int kMostTurns = 3;
    ++depth_;
    for (int turn = 0; turn < kMostTurns; ++turn) {
        if (!QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) break;
    }
    --depth_;
    since_last_turn_.start();
}

void QtEventLoop::DoEventsOften() {
    constexpr qint64 kMilliseconds = 5;
    if (since_last_turn_.isValid() && !since_last_turn_.hasExpired(kMilliseconds)) return;
    DoEvents();
}

}  // namespace platform
