#pragma once

#include <QTimer>
#include <cstdint>
#include <memory>

#include "platform/timer.h"

namespace platform {

/// The real timer.
class QtTimer final : public Timer {
  public:
    QtTimer();

    bool SetInterval(std::int64_t milliseconds) override;
    std::int64_t Interval() const { return interval_; }
    void SetEnabled(bool enabled) override;
    bool Enabled() const { return enabled_; }

  private:
    void Restart();
    void Due();
    void FireAfterArrivals();
    void Fire();

    std::int64_t interval_ = 0;
    bool enabled_ = false;
    std::uint64_t due_since_ = 0;  // a SocketWatch::Moment
    std::shared_ptr<bool> in_handler_ = std::make_shared<bool>(false);
    QTimer timer_;
    QTimer next_turn_;  // runs while this timer is due but sockets go first
};

}  // namespace platform
