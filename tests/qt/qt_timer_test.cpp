#include "platform/qt/qt_timer.h"

#include "tests/contracts/timer_contract.h"
#include "tests/qt/real_bench.h"

namespace {

struct QtTimerBench : real::Clock {
    std::unique_ptr<platform::Timer> NewTimer() { return std::make_unique<platform::QtTimer>(); }
};

}  // namespace

namespace contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, TimerContract, QtTimerBench);
}  // namespace contracts
