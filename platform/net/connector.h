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

/// Connects to a host: looks its addresses up and tries one after the other. Gives up when it is
/// destroyed.
class Connector : public QObject {
  public:
    /// Called once, from the event loop, with a connected socket that is the callee's to close. It
    /// may destroy the connector.
    using Connected = std::function<void(native::Handle)>;

    Connector(HostResolver& resolver, const std::string& host, std::uint16_t port,
              Connected connected);
    ~Connector() override;

    /// Why no address is left to try; None while one is. Nobody is called in the end, then.
    SocketFailure Failure() const { return failure_; }

  private:
    void TryNext();
    bool Start(native::Address address);
    void Decided();
    void Drop();
    void NoteFailure(SocketFailure why);

    std::uint16_t port_;
    Connected connected_;
    HostResolver::Addresses addresses_;  // those not tried yet, the next one last
    native::Handle handle_ = native::kNoHandle;
    std::unique_ptr<SocketWatch> decided_;
    QTimer look_for_failure_;
    QTimer patience_;
    SocketFailure tried_ = SocketFailure::Unreachable;  // the best that is known of what was tried
    SocketFailure failure_ = SocketFailure::None;
};

}  // namespace platform
