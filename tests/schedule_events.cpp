#include "tests/schedule_events.h"

#include <iterator>

#include "tests/schedule_site.h"

namespace schedules {

namespace {

constexpr struct {
    const char* name;
    unsigned weight;
} kKinds[] = {{"Serve", 30}, {"Finish", 22},     {"CloseEarly", 4}, {"Reset", 3},
              {"Wait", 22},  {"Stop", 7},        {"Start", 7},      {"Pause", 2},
              {"Resume", 3}, {"Connections", 2}, {"Restart", 1}};

Kind RandomKind(Random& random) {
    unsigned sum = 0;
    for (const auto& kind : kKinds) {
        sum += kind.weight;
    }
    auto left = static_cast<unsigned>(random() % sum);
    int index = 0;
    while (left >= kKinds[index].weight) {
        left -= kKinds[index++].weight;
    }
    return static_cast<Kind>(index);
}

unsigned RandomAmount(Random& random) {
    constexpr unsigned kAmounts[] = {0, 1, 20, 40, 100, 250, 700, 3000};
    return kAmounts[random() % std::size(kAmounts)] + static_cast<unsigned>(random() % 4);
}

}  // namespace

std::vector<Event> RandomEvents(unsigned seed) {
    Random random(seed);
    const auto below = [&random](unsigned end) { return static_cast<unsigned>(random() % end); };
    std::vector<Event> events = {{Kind::Start, below(2)}};
    for (unsigned count = 10 + below(70); count > 0; --count) {
        const Kind kind = RandomKind(random);
        const unsigned which = below(24);
        const unsigned amount = RandomAmount(random);
        // Most handlers yield a few times, scans often.
        const unsigned yield = 1 + below(below(2) == 0 ? 6 : 40);
        events.push_back({kind, which, amount, below(3) == 0 ? static_cast<int>(yield) : 0});
    }
    return events;
}

std::string AsCode(const std::vector<Event>& events) {
    std::string code;
    for (const Event& event : events) {
        code += std::string("{Kind::") + kKinds[static_cast<int>(event.kind)].name + ", " +
                std::to_string(event.which) + ", " + std::to_string(event.amount) + ", " +
                std::to_string(event.yield) + "},\n";
    }
    return code;
}

}  // namespace schedules
