#pragma once

#include <memory>

#include "platform/timer.h"
#include "tests/fakes/fake_loop.h"

namespace fakes {

/// A timer in the virtual time of a `FakeLoop`.
class FakeTimer : public platform::Timer {
  public:
    explicit FakeTimer(FakeLoop& loop) : loop_(loop) {}

    bool SetInterval(std::int64_t milliseconds) override {
        if (milliseconds < 0) return false;
        interval_ = milliseconds;
        Restart();
        return true;
    }
    std::int64_t Interval() const { return interval_; }

    void SetEnabled(bool enabled) override {
        enabled_ = enabled;
        Restart();
    }
    bool Enabled() const { return enabled_; }

  private:
    struct Run {};  // exists as long as the ticks of one start are wanted

    void Restart() {
        run_.reset();
        if (!enabled_ || interval_ == 0) return;
        run_ = std::make_shared<Run>();
        due_ = loop_.Now() + interval_;
        Schedule();
    }

    void Schedule() {
        loop_.PostIn(due_ - loop_.Now(), [this, run = std::weak_ptr(run_)] {
            if (!run.expired()) Tick();
        });
    }

    void Tick() {
        due_ += interval_;
        if (due_ < loop_.Now()) due_ = loop_.Now() + interval_;
        Schedule();
        if (*in_handler_ || !on_timer) return;
        const auto in_handler = in_handler_;  // the handler may destroy the timer
        const auto handler = on_timer;
        *in_handler = true;
        handler();
        *in_handler = false;
    }

    FakeLoop& loop_;
    std::int64_t interval_ = 0;
    bool enabled_ = false;
    std::int64_t due_ = 0;
    std::shared_ptr<Run> run_;
    std::shared_ptr<bool> in_handler_ = std::make_shared<bool>(false);
};

}  // namespace fakes
