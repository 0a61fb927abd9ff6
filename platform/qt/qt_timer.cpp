#include "platform/qt/qt_timer.h"

#include <algorithm>
#include <limits>

#include "platform/net/socket_watch.h"

namespace platform {

QtTimer::QtTimer() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Due(); });
    next_turn_.setSingleShot(true);
    QObject::connect(&next_turn_, &QTimer::timeout, &next_turn_, [this] { FireAfterArrivals(); });
}

bool QtTimer::SetInterval(std::int64_t milliseconds) {
    if (milliseconds < 0) return false;
    interval_ = milliseconds;
    Restart();
    return true;
}

void QtTimer::SetEnabled(bool enabled) {
    enabled_ = enabled;
    Restart();
}

void QtTimer::Restart() {
    timer_.stop();
    next_turn_.stop();
    if (!enabled_ || interval_ == 0) return;
    // Qt's intervals are limited to 24 days; longer ones are cut to that.
    constexpr std::int64_t kLongest = std::numeric_limits<int>::max();
    timer_.start(static_cast<int>(std::min(interval_, kLongest)));
}

void QtTimer::Due() {
    if (*in_handler_ || next_turn_.isActive()) return;
    due_since_ = SocketWatch::Now();
    FireAfterArrivals();
}

/// Bytes may have piled up during a long handler, and Qt fires timers before it looks at the
/// sockets again. Each socket goes first only once; otherwise a busy network could hold up the
/// timer for ever.
void QtTimer::FireAfterArrivals() {
    if (SocketWatch::AnyWaitsSince(due_since_)) {
        next_turn_.start(0);
    } else {
        Fire();
    }
}

void QtTimer::Fire() {
    const auto in_handler = in_handler_;  // copies: the handler may destroy the timer
    const auto handler = on_timer;
    *in_handler = true;
    if (handler) handler();
    *in_handler = false;
}

}  // namespace platform
