#pragma once

#include <memory>

#include "platform/socket.h"

namespace platform {

/// The real socket.
///
/// It stands on the system's own non-blocking sockets and Qt's name lookup and notifiers,
/// not on QTcpSocket: that one reports a reset like an orderly close, and then an answer that was
/// cut off half-way would be taken for a whole one.
class QtSocket final : public Socket {
  public:
    QtSocket();
    ~QtSocket() override;

    void Connect(const std::string& host, std::uint16_t port) override;
    bool SendData(std::string_view bytes) override;
    std::string GetData() override;
    void Close() override;
    SocketState State() const override;

  private:
    class Connection;
    std::unique_ptr<Connection> connection_;  // none while the state is Closed
};

}  // namespace platform
