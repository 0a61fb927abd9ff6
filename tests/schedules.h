#pragma once

#include <string>
#include <vector>

/// Random schedules of user, server and time events, during which the engine must keep its
/// invariants. This file is the interface for tests.
namespace schedules {

enum class Kind {
    Serve,        ///< the server of an open connection accepts, or sends `amount` bytes, or ends
    Finish,       ///< the server does all of that at once
    CloseEarly,   ///< the server closes, even in the middle of a response
    Reset,        ///< the server resets the connection
    Wait,         ///< `amount` milliseconds pass
    Stop,         ///< the stop button; an odd `amount` answers Yes, and half of those start again
    Start,        ///< starts a crawl of one of the sites
    Pause,        ///< the pause entry of the menu
    Resume,       ///< closes the pause dialog
    Connections,  ///< chooses another number of connections
};

/// An event that happens now, or at the `yield`-th yield from now on. Any list of events can be
/// run: an event that is impossible at its time, such as a click on a disabled button, does
/// nothing.
struct Event {
    Kind kind;
    unsigned which = 0;  ///< picks a connection, a site or a number
    unsigned amount = 0;
    int yield = 0;
};

std::vector<Event> RandomEvents(unsigned seed);

/// Everything visible of the engine during these events: requests, files, rows and labels. If
/// `report_taken_away`, the report is cleared again and again.
std::string Trace(unsigned seed, const std::vector<Event>& events, bool report_taken_away);

/// The first violated invariant during these events, or "". The seed determines the sites and the
/// limits.
std::string Fault(unsigned seed, const std::vector<Event>& events);

}  // namespace schedules
