#pragma once

#include <QObject>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/net/host_resolver.h"
#include "platform/net/native_socket.h"
#include "platform/net/socket_watch.h"

namespace platform {

/// Connects to a host: looks up its addresses and tries one after the other. Destroying it ends the
/// attempt.
class Connector : public QObject {
  public:
    /// Called once, from the event loop, with a connected socket that the callee must close. It may
    /// destroy the connector.
    using Connected = std::function<void(native::Handle)>;

    Connector(HostResolver& resolver, const std::string& host, std::uint16_t port,
              Connected connected);
    ~Connector() override;

    /// Why the attempt has failed; None while it may still succeed. After a failure, `connected` is
    /// never called.
    SocketFailure Failure() const { return failure_; }

  private:
    void TryNext();
    bool Start(native::Address address);
    void Decided();
    void Drop();
    void NoteFailure(SocketFailure why);

    std::uint16_t port_;
    Connected connected_;
    HostResolver::Addresses addresses_;  // those left to try, the next one last
    native::Handle handle_ = native::kNoHandle;
    std::unique_ptr<SocketWatch> decided_;
    QTimer look_for_failure_;
    QTimer patience_;
    SocketFailure tried_ = SocketFailure::Unreachable;  // the final one, unless connected
    SocketFailure failure_ = SocketFailure::None;
};

}  // namespace platform
