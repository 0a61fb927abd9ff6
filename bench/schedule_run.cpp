// Runs random schedules of user, servers and time over the engine in memory, and checks what must
// always hold after each event. Prints each failing schedule, shortened, as code for
// tests/schedule_test.cpp.
//
//     ninja -C build/release schedule_run
//     build/release/bench/schedule_run --count 100000 --seed 1
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/schedules.h"

namespace {

using schedules::Event;
using schedules::Fault;

/// A failing schedule without the events that it also fails without.
std::vector<Event> Shortened(unsigned seed, std::vector<Event> events) {
    for (std::ptrdiff_t count = std::ssize(events) / 2; count > 0; count /= 2) {
        for (std::ptrdiff_t at = 0; at < std::ssize(events);) {
            std::vector<Event> fewer = events;
            fewer.erase(fewer.begin() + at,
                        fewer.begin() + std::min(at + count, std::ssize(events)));
            if (Fault(seed, fewer).empty()) {
                at += count;
            } else {
                events = std::move(fewer);
            }
        }
    }
    return events;
}

std::string AsCode(const std::vector<Event>& events) {
    constexpr const char* kNames[] = {"Serve", "Finish", "CloseEarly", "Reset",  "Wait",
                                      "Stop",  "Start",  "Pause",      "Resume", "Connections"};
    std::string code;
    for (const Event& event : events) {
        code += std::string("{Kind::") + kNames[static_cast<int>(event.kind)] + ", " +
                std::to_string(event.which) + ", " + std::to_string(event.amount) + ", " +
                std::to_string(event.yield) + "},\n";
    }
    return code;
}

}  // namespace

int main(int argc, char** argv) {
    std::map<std::string, unsigned> given = {{"--count", 100'000}, {"--seed", 1}};
    for (int i = 1; i + 1 < argc; i += 2) {
        if (!given.contains(argv[i])) argc = 0;
        given[argv[i]] = static_cast<unsigned>(std::strtoul(argv[i + 1], nullptr, 10));
    }
    if (argc % 2 == 0) {
        std::fputs("usage: schedule_run [--count N] [--seed S]\n", stderr);
        return 2;
    }
    constexpr unsigned kPerLine = 1000;
    unsigned faults = 0;
    for (unsigned i = 0; i < given["--count"]; ++i) {
        const unsigned seed = given["--seed"] + i;
        // Printed in advance, so that a crash can be found again.
        if (i % kPerLine == 0) std::printf("from seed %u on, %u faults so far\n", seed, faults);
        std::fflush(stdout);
        const std::vector<Event> events = schedules::RandomEvents(seed);
        if (Fault(seed, events).empty()) continue;
        ++faults;
        const std::vector<Event> few = Shortened(seed, events);
        std::printf("seed %u: %s\n%s\n", seed, Fault(seed, few).c_str(), AsCode(few).c_str());
    }
    std::printf("%u schedules, %u faults\n", given["--count"], faults);
    return faults == 0 ? 0 : 1;
}
