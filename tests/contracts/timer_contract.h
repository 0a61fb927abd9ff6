#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/timer.h"

/// What every timer keeps to, run on the real one and on its twin. A bench brings:
///   NewTimer()           a timer, as a unique_ptr
///   Now()                milliseconds of the clock that the timers go by
///   Wait(ms)             lets time pass and events run
///   RunUntil(condition)  lets events run until it holds; false when it never does
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

    /// Whether so many more ticks come at all.
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
    std::function<void()> in_handler;  // what else it does
};

TYPED_TEST_SUITE_P(TimerContract);

TYPED_TEST_P(TimerContract, FiresAgainAndAgainWhileEnabled) {
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

TYPED_TEST_P(TimerContract, EnablingStartsItAnew) {
    auto& timer = *this->timer_;
    timer.SetInterval(100);
    timer.SetEnabled(true);
    this->bench_.Wait(60);
    const std::int64_t start = this->bench_.Now();
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(1));
    EXPECT_GE(this->bench_.Now() - start, 100 - 2);
}

TYPED_TEST_P(TimerContract, ItsOwnHandlerMayStopOrDestroyIt) {
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

TYPED_TEST_P(TimerContract, TicksDuringItsHandlerAreLost) {
    auto& timer = *this->timer_;
    this->in_handler = [&] {
        this->in_handler = nullptr;
        timer.SetEnabled(true);  // the timeout's way to start over
        EXPECT_FALSE(this->TicksWithin(100)) << "fired inside itself";
        timer.SetInterval(1000);  // so that only a tick that was made up for could come now
    };
    timer.SetInterval(10);
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(1));
    EXPECT_FALSE(this->TicksWithin(20));
    timer.SetInterval(10);
    EXPECT_TRUE(this->Ticks(1)) << "but it goes on";
}

REGISTER_TYPED_TEST_SUITE_P(TimerContract, FiresAgainAndAgainWhileEnabled, EnablingStartsItAnew,
                            ItsOwnHandlerMayStopOrDestroyIt, TicksDuringItsHandlerAreLost);

}  // namespace contracts
