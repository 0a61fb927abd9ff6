#include <iterator>
#include <random>

#include "tests/schedules.h"

namespace schedules {

std::vector<Event> RandomEvents(unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&random](auto end) { return static_cast<unsigned>(random() % end); };
    std::discrete_distribution<> kinds{30, 22, 4, 3, 22, 7, 7, 2, 3, 2};  // in the order of Kind
    constexpr unsigned kAmounts[] = {0, 1, 20, 40, 100, 250, 700, 3000};
    std::vector<Event> events = {{Kind::Start, below(2)}};
    for (unsigned count = 10 + below(70); count > 0; --count) {
        const auto kind = static_cast<Kind>(kinds(random));
        const unsigned which = below(24);
        const unsigned amount = kAmounts[below(std::size(kAmounts))] + below(4);
        // Most handlers yield a few times, scans often.
        const unsigned yield = 1 + below(below(2) == 0 ? 6 : 40);
        events.push_back({kind, which, amount, below(3) == 0 ? static_cast<int>(yield) : 0});
    }
    return events;
}

}  // namespace schedules
