#pragma once

#include <QSocketNotifier>
#include <cstdint>
#include <functional>

#include "platform/net/native_socket.h"

namespace platform {

/// Calls a handler from the event loop while a socket is ready for something. The process knows all
/// of its watches, so that a timer can ask whether something has arrived that goes before it.
class SocketWatch : public QSocketNotifier {
  public:
    /// The handler may destroy the watch. The socket must outlive it.
    SocketWatch(native::Handle handle, Type type, const std::function<void()>& handler);
    ~SocketWatch() override;

    /// A point in the order in which watches are made and handlers called.
    using Moment = std::uint64_t;
    static Moment Now();

    /// Whether a socket is ready whose handler has not been called since `moment`.
    static bool AnyWaitsSince(Moment moment);

  protected:
    bool event(QEvent* event) override;

  private:
    native::Handle handle_;
    Moment called_;
};

}  // namespace platform
