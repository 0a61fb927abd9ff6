#pragma once

#include <QElapsedTimer>

#include "platform/event_loop.h"

namespace platform {

/// Lets the toolkit's pending events run.
class QtEventLoop final : public EventLoop {
  public:
    void DoEvents() override;
    void DoEventsOften() override;

  private:
    QElapsedTimer since_last_turn_;
};

}  // namespace platform
