#include "platform/qt/qt_timer.h"

#include <algorithm>
#include <limits>

namespace platform {

QtTimer::QtTimer() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
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
    if (!enabled_ || interval_ == 0) return;
    // Qt counts 24 days at most; a longer interval would fire no sooner than it must.
    constexpr std::int64_t kLongest = std::numeric_limits<int>::max();
    timer_.start(static_cast<int>(std::min(interval_, kLongest)));
}

void QtTimer::Tick() {
    if (*in_handler_ || !on_timer) return;
    const auto in_handler = in_handler_;  // the handler may destroy the timer
    const auto handler = on_timer;
    *in_handler = true;
    handler();
    *in_handler = false;
}

}  // namespace platform
