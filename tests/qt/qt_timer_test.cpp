#include "platform/qt/qt_timer.h"

#include "tests/contracts/timer_contract.h"
#include "tests/qt/real_bench.h"

namespace contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, TimerContract, real::Clock);
}  // namespace contracts
