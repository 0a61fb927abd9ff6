#pragma once

#include <QElapsedTimer>

#include "platform/event_loop.h"

namespace platform {

/// Lets Qt's pending events run.
class QtEventLoop final : public EventLoop {
  public:
    void DoEvents() override;
    void DoEventsThrottled() override;

    /// How many calls of `DoEvents` are running, one inside the other.
    int Depth() const { return depth_; }

  private:
    int depth_ = 0;
    QElapsedTimer since_last_turn_;
};

}  // namespace platform
