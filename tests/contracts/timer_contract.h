#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/timer.h"

/// The contract of `platform::Timer`, run on the real timer and on its in-memory twin. A bench
/// provides:
///   NewTimer()           a timer, as a unique_ptr
///   Now()                the time of the timers' clock in milliseconds
///   Wait(ms)             lets time pass and runs events
///   RunUntil(condition)  runs events until it holds; false if it never does
namespace contracts {

template <typename Bench>
class TimerContract : public testing::Test {
  protected:
    TimerContract() : timer_(bench_.NewTimer()) {
        timer_->on_timer = [this] {
            ++ticks;
            if (const auto act = in_handler) act();
        };
    }

    /// Whether this many more ticks come.
    bool Ticks(int count) {
        return bench_.RunUntil([this, goal = ticks + count] { return ticks >= goal; });
    }
    bool TicksWithin(std::int64_t milliseconds) {
        const int before = ticks;
        bench_.Wait(milliseconds);
        return ticks > before;
    }

    Bench bench_;
    std::unique_ptr<platform::Timer> timer_;
    int ticks = 0;
    std::function<void()> in_handler;  // called at the end of the handler
};

TYPED_TEST_SUITE_P(TimerContract);

TYPED_TEST_P(TimerContract, FiresRepeatedlyWhileEnabled) {
    auto& timer = *this->timer_;
    EXPECT_TRUE(timer.SetInterval(20));
    EXPECT_FALSE(this->TicksWithin(50));
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(5));
    EXPECT_FALSE(timer.SetInterval(-1));
    EXPECT_TRUE(this->Ticks(1));
    EXPECT_TRUE(timer.SetInterval(0));
    EXPECT_FALSE(this->TicksWithin(50));
}

TYPED_TEST_P(TimerContract, RestartsItsIntervalWhenEnabled) {
    auto& timer = *this->timer_;
    timer.SetInterval(100);
    timer.SetEnabled(true);
    this->bench_.Wait(60);
    const std::int64_t start = this->bench_.Now();
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(1));
    EXPECT_GE(this->bench_.Now() - start, 100 - 2);
}

TYPED_TEST_P(TimerContract, MayBeStoppedOrDestroyedInItsHandler) {
    auto& timer = *this->timer_;
    timer.SetInterval(10);
    timer.SetEnabled(true);
    this->in_handler = [&] { timer.SetEnabled(false); };
    EXPECT_TRUE(this->Ticks(1));
    EXPECT_FALSE(this->TicksWithin(50));
    this->in_handler = [this] { this->timer_.reset(); };
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(1));
}

TYPED_TEST_P(TimerContract, DropsTicksDuringItsHandler) {
    auto& timer = *this->timer_;
    this->in_handler = [&] {
        this->in_handler = nullptr;
        timer.SetEnabled(true);  // like a slot's timeout that starts over
        EXPECT_FALSE(this->TicksWithin(100)) << "fired while the handler was running";
        timer.SetInterval(1000);  // only a tick that was made up for could still come
    };
    timer.SetInterval(10);
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(1));
    EXPECT_FALSE(this->TicksWithin(20));
    timer.SetInterval(10);
    EXPECT_TRUE(this->Ticks(1)) << "the timer must go on";
}

REGISTER_TYPED_TEST_SUITE_P(TimerContract, FiresRepeatedlyWhileEnabled,
                            RestartsItsIntervalWhenEnabled, MayBeStoppedOrDestroyedInItsHandler,
                            DropsTicksDuringItsHandler);

}  // namespace contracts
