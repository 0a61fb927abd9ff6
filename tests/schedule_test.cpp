#include <gtest/gtest.h>

#include "tests/schedules.h"

// User, server and time events in random order. `bench/schedule_run` does the same for hours.

TEST(Schedules, RandomSchedulesKeepTheInvariants) {
    for (unsigned seed = 1; seed <= 1000; ++seed) {
        ASSERT_EQ(schedules::Fault(seed, schedules::RandomEvents(seed)), "") << "seed " << seed;
    }
}

TEST(Schedules, ClearingTheReportChangesNoDecision) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        const std::vector<schedules::Event> events = schedules::RandomEvents(seed);
        const std::string trace = schedules::Trace(seed, events, false);
        ASSERT_FALSE(trace.empty());
        ASSERT_TRUE(schedules::Trace(seed, events, true) == trace) << "seed " << seed;
    }
}
