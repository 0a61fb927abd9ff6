#pragma once

#include <memory>

#include "platform/socket.h"

namespace platform {

class Connector;
class HostResolver;
class Stream;

/// The real socket.
///
/// It uses the system's own non-blocking sockets and Qt's notifiers instead of QTcpSocket, which
/// reports a reset like an orderly close: a truncated response would be taken for a complete one.
class QtSocket final : public Socket {
  public:
    QtSocket();
    /// Uses the given resolver, which must outlive the socket.
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
    std::unique_ptr<Connector> connector_;  // from Connect until connected
    std::unique_ptr<Stream> stream_;        // after that
};

}  // namespace platform
