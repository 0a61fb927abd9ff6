#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/net/native_socket.h"
#include "platform/net/socket_watch.h"
#include "platform/socket.h"

namespace platform {

/// An established connection: receiving, sending, and how it ends. Its events follow the contract
/// of `Socket`.
class Stream : public QObject {
  public:
    /// Takes ownership of a connected socket. `on_data` is looked up at each event, so it must
    /// outlive the stream.
    Stream(native::Handle handle, const std::function<void()>& on_data);
    ~Stream() override;

    /// Calls a handler, which may destroy the stream. Data that arrives meanwhile is reported
    /// afterwards.
    void Raise(std::function<void()> handler);

    /// Sends `bytes` in the background.
    void Send(std::string_view bytes);
    /// Returns and removes the waiting bytes.
    std::string Take();
    SocketState State() const { return state_; }
    SocketFailure Failure() const { return failure_; }

  private:
    void Readable();
    void Check();
    bool ReadMore();
    bool Keep(std::string_view bytes);
    void Fail(SocketFailure why);
    void Flush();
    void CloseHandle();

    const std::function<void()>& on_data_;
    native::Handle handle_;
    SocketState state_ = SocketState::Connected;
    SocketFailure failure_ = SocketFailure::None;
    std::unique_ptr<SocketWatch> readable_;  // while the peer may still send
    std::unique_ptr<SocketWatch> writable_;  // while bytes wait to be sent
    std::string waiting_;
    std::string outgoing_;
    bool in_handler_ = false;
    bool any_byte_came_ = false;
    bool sending_failed_ = false;
};

}  // namespace platform
