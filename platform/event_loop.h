#pragma once

namespace platform {

/// Letting pending interface events run from inside a handler.
///
/// Anything may happen in there: other handlers run, scans nest, the crawl is stopped, the window
/// is reloaded. Whoever yields reads the world afresh afterwards.
class EventLoop {
  public:
    virtual ~EventLoop() = default;

    /// Runs what is pending and returns.
    virtual void DoEvents() = 0;

    /// For work that yields at every step: the loop really runs only when the last time was some
    /// milliseconds ago. What came since then waits no longer than a person notices, and a small
    /// file costs no iteration for each of its steps.
    virtual void DoEventsThrottled() = 0;
};

}  // namespace platform
