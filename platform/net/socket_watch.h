#pragma once

#include <QSocketNotifier>
#include <cstdint>
#include <functional>

#include "platform/net/native_socket.h"

namespace platform {

/// Calls a handler from the event loop while a socket is ready. A list of all watches lets a timer
/// check for pending socket events, which run before it.
class SocketWatch : public QSocketNotifier {
  public:
    /// The handler may destroy the watch. The socket must outlive it.
    SocketWatch(native::Handle handle, Type type, const std::function<void()>& handler);
    ~SocketWatch() override;

    /// A position in the sequence of creating watches and calling handlers.
    using Moment = std::uint64_t;
    static Moment Now();

    /// Whether any socket is ready whose handler has not been called since `moment`.
    static bool AnyWaitsSince(Moment moment);

  protected:
    bool event(QEvent* event) override;

  private:
    native::Handle handle_;
    Moment called_;
};

}  // namespace platform
