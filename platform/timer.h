#pragma once

#include <cstdint>
#include <functional>

namespace platform {

/// A repeating interface timer. It fires on the event loop's thread, to the millisecond where the
/// system allows; a tick that came late is not made up for.
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
