#include "platform/net/qt_socket.h"

#include "platform/net/connector.h"
#include "platform/net/stream.h"

namespace platform {

QtSocket::QtSocket() : QtSocket(HostResolver::Shared()) {}
QtSocket::QtSocket(HostResolver& resolver) : resolver_(resolver) {}
QtSocket::~QtSocket() = default;

void QtSocket::Connect(const std::string& host, std::uint16_t port) {
    Close();
    connector_ = std::make_unique<Connector>(resolver_, host, port, [this](native::Handle handle) {
        connector_.reset();
        stream_ = std::make_unique<Stream>(handle, on_data);
        stream_->Raise(on_connect);
    });
}

bool QtSocket::SendData(std::string_view bytes) {
    const SocketState state = State();
    if (state != SocketState::Connected && state != SocketState::Closing) return false;
    stream_->Send(bytes);
    return true;
}

std::string QtSocket::GetData() {
    return stream_ ? stream_->Take() : std::string();
}

void QtSocket::Close() {
    connector_.reset();
    stream_.reset();
}

SocketState QtSocket::State() const {
    if (stream_) return stream_->State();
    if (!connector_) return SocketState::Closed;
    return connector_->Failure() == SocketFailure::None ? SocketState::Connecting
                                                        : SocketState::Error;
}

SocketFailure QtSocket::Failure() const {
    if (stream_) return stream_->Failure();
    return connector_ ? connector_->Failure() : SocketFailure::None;
}

}  // namespace platform
