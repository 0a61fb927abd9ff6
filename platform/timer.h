#pragma once

#include <cstdint>
#include <functional>

namespace platform {

/// A repeating interface timer. It fires on the event loop's thread, to the millisecond where the
/// system allows; a tick that came late is not made up for.
///
/// What has arrived goes first. Before a timer that is due fires, every socket for which something
/// has arrived (the connection itself, bytes, the peer's close) raises an event, also when a long
/// handler has kept the loop from looking. When such an event stops the timer or starts it anew, it
/// does not fire. So a timeout measures the peer's silence and not the program's own work; and
/// since each socket goes first once only, a fast peer does not keep the timer waiting.
class Timer {
  public:
    virtual ~Timer() = default;

    /// Sets the interval in milliseconds; an enabled timer starts it anew. 0 never fires. A
    /// negative interval is refused: false, and nothing changes.
    virtual bool SetInterval(std::int64_t milliseconds) = 0;
    virtual std::int64_t Interval() const = 0;

    /// Enabling, also when enabled already, restarts the full interval.
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool Enabled() const = 0;

    std::function<void()> on_timer;
};

}  // namespace platform
