// Runs random schedules of user, servers and time over the engine in memory, and checks after each
// event what always holds. Prints each that fails, shortened, as code for tests/schedule_test.cpp.
//
//     ninja -C build/release schedule_run && build/release/bench/schedule_run --count 100000 --seed
//     1
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "tests/schedule_world.h"

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
        // Said before, so that a crash can be found again.
        if (i % kPerLine == 0) std::printf("from seed %u on, %u faults so far\n", seed, faults);
        std::fflush(stdout);
        const std::string report = schedules::Report(seed);
        if (report.empty()) continue;
        ++faults;
        std::puts(report.c_str());
    }
    std::printf("%u schedules, %u faults\n", given["--count"], faults);
    return faults == 0 ? 0 : 1;
}
