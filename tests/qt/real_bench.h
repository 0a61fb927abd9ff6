#pragma once

#include <QElapsedTimer>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_timer.h"

/// Lets real time pass in a test. The deadline is so long that only a fault reaches it.
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
    /// Lets time pass without events, like a slow handler.
    void Block(std::int64_t milliseconds) const {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }

    std::unique_ptr<platform::Timer> NewTimer() const {
        return std::make_unique<platform::QtTimer>();
    }

    platform::QtEventLoop loop;

  private:
    QElapsedTimer clock_;
};

}  // namespace real
