#pragma once

#include <cstdint>
#include <functional>

namespace platform {

/// A repeating timer. It fires on the event loop's thread, to the millisecond if the system allows.
/// A late tick is not made up for.
///
/// Pending socket events run before a due timer: every socket with something pending (the
/// connection itself, bytes, the peer's close) raises one event, even if a long handler has kept
/// the loop from looking. If that event stops or restarts the timer, the timer does not fire. So a
/// timeout measures the peer's silence, not the program's own work. Each socket goes first only
/// once, so that a fast peer cannot hold up the timer.
class Timer {
  public:
    virtual ~Timer() = default;

    /// Sets the interval in milliseconds and restarts an enabled timer. With 0 it never fires. A
    /// negative interval is refused: returns false and changes nothing.
    virtual bool SetInterval(std::int64_t milliseconds) = 0;

    /// Enabling restarts the full interval, even if the timer is already enabled.
    virtual void SetEnabled(bool enabled) = 0;

    std::function<void()> on_timer;
};

}  // namespace platform
