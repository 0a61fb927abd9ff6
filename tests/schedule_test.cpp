#include <gtest/gtest.h>

#include "tests/schedules.h"

// Users, servers and time in random order. `bench/schedule_run` does the same for hours.

TEST(Schedules, RandomSchedulesKeepTheInvariants) {
    for (unsigned seed = 1; seed <= 1000; ++seed) {
        ASSERT_EQ(schedules::Fault(seed, schedules::RandomEvents(seed)), "") << "seed " << seed;
    }
}
