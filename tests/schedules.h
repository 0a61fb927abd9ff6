#pragma once

#include <string>
#include <vector>

/// Random schedules: users, servers and time do as they like, and the engine must hold what always
/// holds. This file: all that a test needs.
namespace schedules {

enum class Kind {
    Serve,       ///< the server of an open connection accepts, or sends `amount` bytes, or ends
    Finish,      ///< it does all of that at once
    CloseEarly,  ///< it closes, wherever it is
    Reset,       ///< it resets
    Wait,        ///< `amount` milliseconds pass
    Stop,        ///< the stop button; an odd `amount` answers Yes, one in two of those starts again
    Start,       ///< a crawl of one of the sites is started
    Pause,       ///< the pause entry of the menu
    Resume,      ///< the pause dialog is closed
    Connections,  ///< another number of connections is chosen
};

/// One thing that happens: now, or at the `yield`-th yield from now on. Every list of events can be
/// run; one that has no object, a click on a button that is disabled for example, does nothing.
struct Event {
    Kind kind;
    unsigned which = 0;  ///< picks a connection, a site or a number
    unsigned amount = 0;
    int yield = 0;
};

std::vector<Event> RandomEvents(unsigned seed);

/// All that can be seen of the engine while these events happen: requests, files, rows and labels.
/// When the report is taken away it is emptied again and again.
std::string Trace(unsigned seed, const std::vector<Event>& events, bool report_taken_away);

/// What goes wrong first when these events happen, or "". The seed gives the sites and the limits.
std::string Fault(unsigned seed, const std::vector<Event>& events);

}  // namespace schedules
