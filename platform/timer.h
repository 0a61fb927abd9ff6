#pragma once

#include <cstdint>
#include <functional>

namespace platform {

/// A repeating interface timer. It fires on the event loop's thread, to the millisecond where the
/// system allows; a tick that came late is not made up for.
///
/// Pending socket events run before a due timer: every socket for which something has arrived (the
/// connection itself, bytes, the peer's close) raises one event, even if a long handler has kept
/// the loop from looking. If that event stops or restarts the timer, the timer does not fire. So a
/// timeout measures the peer's silence and not the program's own work. Each socket goes first only
/// once, so that a fast peer cannot hold up the timer.
class Timer {
  public:
    virtual ~Timer() = default;

    /// Sets the interval in milliseconds; an enabled timer starts it anew. 0 never fires. A
    /// negative interval is refused: false, and nothing changes.
    virtual bool SetInterval(std::int64_t milliseconds) = 0;

    /// Enabling, also when enabled already, restarts the full interval.
    virtual void SetEnabled(bool enabled) = 0;

    std::function<void()> on_timer;
};

}  // namespace platform
