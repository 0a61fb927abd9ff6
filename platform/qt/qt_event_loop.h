#pragma once

#include <QElapsedTimer>

#include "platform/event_loop.h"

namespace platform {

/// Runs Qt's pending events.
class QtEventLoop final : public EventLoop {
  public:
    void DoEvents() override;
    void DoEventsThrottled() override;

    /// How many nested calls of `DoEvents` are running.
    int Depth() const { return depth_; }

  private:
    int depth_ = 0;
    QElapsedTimer since_last_turn_;
};

}  // namespace platform
