#pragma once

#include <string>
#include <vector>

#include "tests/schedule_events.h"

/// Random schedules. This file: running them.
namespace schedules {

/// What goes wrong in this schedule first, or "".
std::string Fault(unsigned seed, const std::vector<Event>& events);

/// The events of a schedule that fails, without those that it fails without.
std::vector<Event> Shortened(unsigned seed, std::vector<Event> events);

/// Runs the random schedule of this seed. When it fails: what goes wrong, and a short schedule that
/// goes wrong, as code.
std::string Report(unsigned seed);

}  // namespace schedules
