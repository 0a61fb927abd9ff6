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
            if (in_handler) in_handler();
        };
    }

    bool Ticks(int count) {
        return bench_.RunUntil([this, count] { return ticks >= count; });
    }

    Bench bench_;
    std::unique_ptr<platform::Timer> timer_;
    int ticks = 0;
    std::function<void()> in_handler;
};

TYPED_TEST_SUITE_P(TimerContract);

TYPED_TEST_P(TimerContract, FiresAgainAndAgainWhileEnabled) {
    auto& timer = *this->timer_;
    EXPECT_FALSE(timer.Enabled());
    EXPECT_TRUE(timer.SetInterval(20));
    this->bench_.Wait(50);
    EXPECT_EQ(this->ticks, 0);
    const std::int64_t start = this->bench_.Now();
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(5));
    EXPECT_GE(this->bench_.Now() - start, 5 * 20 - 2);
    timer.SetEnabled(false);
    const int before = this->ticks;
    this->bench_.Wait(50);
    EXPECT_EQ(this->ticks, before);
}

TYPED_TEST_P(TimerContract, ZeroNeverFiresAndANegativeIntervalIsRefused) {
    auto& timer = *this->timer_;
    EXPECT_TRUE(timer.SetInterval(0));
    timer.SetEnabled(true);
    EXPECT_TRUE(timer.Enabled());
    this->bench_.Wait(30);
    EXPECT_EQ(this->ticks, 0);
    EXPECT_TRUE(timer.SetInterval(10));  // enabled, so it starts now
    EXPECT_FALSE(timer.SetInterval(-1));
    EXPECT_EQ(timer.Interval(), 10);
    EXPECT_TRUE(this->Ticks(2));
    EXPECT_TRUE(timer.SetInterval(0));
    const int before = this->ticks;
    this->bench_.Wait(30);
    EXPECT_EQ(this->ticks, before);
    EXPECT_TRUE(timer.SetInterval(std::int64_t{1} << 40));
    EXPECT_EQ(timer.Interval(), std::int64_t{1} << 40);
    this->bench_.Wait(30);
    EXPECT_EQ(this->ticks, before);
}

TYPED_TEST_P(TimerContract, EnablingOrSettingTheIntervalStartsItAnew) {
    auto& timer = *this->timer_;
    timer.SetInterval(100);
    timer.SetEnabled(true);
    for (const bool by_interval : {false, true}) {
        SCOPED_TRACE(by_interval);
        this->ticks = 0;
        this->bench_.Wait(60);
        const std::int64_t start = this->bench_.Now();
        by_interval ? static_cast<void>(timer.SetInterval(100)) : timer.SetEnabled(true);
        EXPECT_TRUE(this->Ticks(this->ticks + 1));
        EXPECT_GE(this->bench_.Now() - start, 100 - 2);
    }
}

TYPED_TEST_P(TimerContract, ItsOwnHandlerMayChangeIt) {
    auto& timer = *this->timer_;
    timer.SetInterval(10);
    this->in_handler = [&] { timer.SetEnabled(false); };
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(1));
    this->bench_.Wait(50);
    EXPECT_EQ(this->ticks, 1);

    this->in_handler = [&] {  // the timeout's way to start over
        timer.SetEnabled(false);
        timer.SetEnabled(true);
    };
    timer.SetEnabled(true);
    EXPECT_TRUE(this->Ticks(4));
    timer.SetEnabled(false);

    this->in_handler = [this] { this->timer_.reset(); };
    timer.SetEnabled(true);
    EXPECT_TRUE(this->bench_.RunUntil([this] { return !this->timer_; }));
    const int before = this->ticks;
    this->bench_.Wait(50);
    EXPECT_EQ(this->ticks, before);
}

TYPED_TEST_P(TimerContract, TicksDuringItsHandlerAreLost) {
    auto& timer = *this->timer_;
    const auto other = this->bench_.NewTimer();
    int other_ticks = 0;
    other->on_timer = [&] { ++other_ticks; };
    for (const bool restarted : {false, true}) {
        SCOPED_TRACE(restarted);
        this->ticks = 0;
        other_ticks = 0;
        this->in_handler = [&, restarted] {
            if (this->ticks > 1) return;
            if (restarted) timer.SetEnabled(true);
            other->SetEnabled(true);
            this->bench_.Wait(100);
            EXPECT_EQ(this->ticks, 1) << "fired inside itself";
            EXPECT_GE(other_ticks, 1) << "others fire meanwhile";
            other->SetEnabled(false);
            timer.SetInterval(1000);  // so that only a tick that was made up for could come now
        };
        other->SetInterval(10);
        timer.SetInterval(10);
        timer.SetEnabled(true);
        EXPECT_TRUE(this->Ticks(1));
        this->bench_.Wait(20);
        EXPECT_EQ(this->ticks, 1);
        timer.SetInterval(10);
        EXPECT_TRUE(this->Ticks(2)) << "but it goes on";
        timer.SetEnabled(false);
    }
}

REGISTER_TYPED_TEST_SUITE_P(TimerContract, FiresAgainAndAgainWhileEnabled,
                            ZeroNeverFiresAndANegativeIntervalIsRefused,
                            EnablingOrSettingTheIntervalStartsItAnew, ItsOwnHandlerMayChangeIt,
                            TicksDuringItsHandlerAreLost);

}  // namespace contracts
