#pragma once

#include <memory>

#include "platform/socket.h"

namespace platform {

class Connector;
class HostResolver;
class Stream;

/// The real socket.
///
/// It stands on the system's own non-blocking sockets and Qt's notifiers, not on QTcpSocket: that
/// one reports a reset like an orderly close, and then a response that was cut off half-way would
/// be taken for a whole one.
class QtSocket final : public Socket {
  public:
    QtSocket();
    /// Finds hosts by a resolver of one's own, which must outlive the socket.
    explicit QtSocket(HostResolver& resolver);
    ~QtSocket() override;

    void Connect(const std::string& host, std::uint16_t port) override;
    bool SendData(std::string_view bytes) override;
    std::string GetData() override;
    void Close() override;
    SocketState State() const override;
    SocketFailure Failure() const override;

  private:
    HostResolver& resolver_;
    std::unique_ptr<Connector> connector_;  // from Connect until the connection stands
    std::unique_ptr<Stream> stream_;        // from then on
};

}  // namespace platform
