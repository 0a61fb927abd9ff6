#pragma once

#include <QElapsedTimer>
#include <cstdint>
#include <functional>

#include "platform/qt/qt_event_loop.h"

/// Letting real time pass in a test. Deadlines are so long that only a fault meets them.
namespace real {

class Clock {
  public:
    Clock() { clock_.start(); }

    std::int64_t Now() const { return clock_.elapsed(); }

    bool RunUntil(const std::function<bool()>& condition) {
        constexpr std::int64_t kDeadline = 30'000;
        const std::int64_t end = Now() + kDeadline;
        while (!condition()) {
            if (Now() > end) return false;
            loop.DoEvents();
        }
        return true;
    }
    void Wait(std::int64_t milliseconds) {
        const std::int64_t end = Now() + milliseconds;
        RunUntil([&] { return Now() >= end; });
    }

    platform::QtEventLoop loop;

  private:
    QElapsedTimer clock_;
};

}  // namespace real
