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
    EXPECT_FALSE(timer.Enabled());
    EXPECT_TRUE(timer.SetInterval(20));
    EXPECT_FALSE(this->TicksWithin(50));
    const std::int64_t start = this->bench_.Now();
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(5));
    EXPECT_GE(this->bench_.Now() - start, 5 * 20 - 2);
    EXPECT_FALSE(timer.SetInterval(-1));
    EXPECT_EQ(timer.Interval(), 20);
    for (const std::int64_t never : {std::int64_t{0}, std::int64_t{1} << 40}) {
        EXPECT_TRUE(timer.SetInterval(never));
        EXPECT_TRUE(timer.Enabled());
        EXPECT_FALSE(this->TicksWithin(50));
    }
    EXPECT_TRUE(timer.SetInterval(10));  // enabled, so it starts now
    EXPECT_TRUE(this->Ticks(2));
    timer.SetEnabled(false);
    EXPECT_FALSE(this->TicksWithin(50));
}

TYPED_TEST_P(TimerContract, EnablingOrSettingTheIntervalStartsItAnew) {
    auto& timer = *this->timer_;
    timer.SetInterval(100);
    timer.SetEnabled(true);
    for (const bool by_interval : {false, true}) {
        this->bench_.Wait(60);
        const std::int64_t start = this->bench_.Now();
        by_interval ? static_cast<void>(timer.SetInterval(100)) : timer.SetEnabled(true);
        EXPECT_TRUE(this->Ticks(1));
        EXPECT_GE(this->bench_.Now() - start, 100 - 2);
    }
}

TYPED_TEST_P(TimerContract, ItsOwnHandlerMayChangeIt) {
    auto& timer = *this->timer_;
    timer.SetInterval(10);
    timer.SetEnabled(true);
    this->in_handler = [&] {  // the timeout's way to start over
        timer.SetEnabled(false);
        timer.SetEnabled(true);
    };
    EXPECT_TRUE(this->Ticks(3));
    this->in_handler = [&] { timer.SetEnabled(false); };
    EXPECT_TRUE(this->Ticks(1));
    EXPECT_FALSE(this->TicksWithin(50));
    this->in_handler = [this] { this->timer_.reset(); };
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(1));
    EXPECT_FALSE(this->TicksWithin(50));
}

TYPED_TEST_P(TimerContract, TicksDuringItsHandlerAreLost) {
    auto& timer = *this->timer_;
    const auto other = this->bench_.NewTimer();
    int other_ticks = 0;
    other->on_timer = [&] { ++other_ticks; };
    other->SetInterval(10);
    other->SetEnabled(true);
    for (const bool restarted : {false, true}) {
        SCOPED_TRACE(restarted);
        this->in_handler = [&, restarted] {
            this->in_handler = nullptr;
            if (restarted) timer.SetEnabled(true);
            other_ticks = 0;
            EXPECT_FALSE(this->TicksWithin(100)) << "fired inside itself";
            EXPECT_GE(other_ticks, 1) << "others fire meanwhile";
            timer.SetInterval(1000);  // so that only a tick that was made up for could come now
        };
        timer.SetInterval(10);
        timer.SetEnabled(true);
        EXPECT_TRUE(this->Ticks(1));
        EXPECT_FALSE(this->TicksWithin(20));
        timer.SetInterval(10);
        EXPECT_TRUE(this->Ticks(1)) << "but it goes on";
        timer.SetEnabled(false);
    }
}

REGISTER_TYPED_TEST_SUITE_P(TimerContract, FiresAgainAndAgainWhileEnabled,
                            EnablingOrSettingTheIntervalStartsItAnew, ItsOwnHandlerMayChangeIt,
                            TicksDuringItsHandlerAreLost);

}  // namespace contracts
