#pragma once

namespace platform {

/// Lets pending events run from inside a handler.
///
/// Anything may happen meanwhile: other handlers run, scans nest, the crawl is stopped, the window
/// is reloaded. Code that yields must read all state afresh afterwards.
class EventLoop {
  public:
    virtual ~EventLoop() = default;

    /// Runs the pending events and returns.
    virtual void DoEvents() = 0;

    /// For work that yields at every step. Runs the loop only if the last run was some milliseconds
    /// ago: events wait no longer than a person notices, and a small file does not cost one
    /// iteration per step.
    virtual void DoEventsThrottled() = 0;
};

}  // namespace platform
