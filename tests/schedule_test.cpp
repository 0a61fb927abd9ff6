#include <gtest/gtest.h>

#include "tests/schedule_world.h"

// Users, servers and time in random order. `bench/schedule_run` does the same for hours.

namespace schedules {
namespace {

TEST(Schedules, AThousandHoldWhatAlwaysHolds) {
    for (unsigned seed = 1; seed <= 1000; ++seed) {
        ASSERT_EQ(Report(seed), "");
    }
}

}  // namespace
}  // namespace schedules
