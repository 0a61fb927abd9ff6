#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>

#include "platform/socket.h"
#include "tests/fakes/fake_loop.h"

namespace fakes {

/// A socket whose peer is the test. The peer's actions reach the socket through the loop, as on a
/// network.
class FakeSocket : public platform::Socket {
  public:
    /// The most bytes that one `on_data` can read.
    static constexpr std::size_t kMostPerEvent = 256 * 1024;

    explicit FakeSocket(FakeLoop& loop) : loop_(loop) {}

    void Connect(const std::string& host, std::uint16_t port) override {
        Close();
        host_ = host;
        port_ = port;
        sent_.clear();
        connection_ = std::make_shared<Connection>();
        state_ = platform::SocketState::Connecting;
        if (peer_on_connect) peer_on_connect();
    }

    bool SendData(std::string_view bytes) override {
        if (state_ != platform::SocketState::Connected &&
            state_ != platform::SocketState::Closing) {
            return false;
        }
        sent_ += bytes;
        return true;
    }

    std::string GetData() override {
        return connection_ ? std::exchange(connection_->waiting, {}) : std::string();
    }

    void Close() override {
        connection_.reset();
        state_ = platform::SocketState::Closed;
    }

    platform::SocketState State() const override { return state_; }
    platform::SocketFailure Failure() const override {
        return state_ == platform::SocketState::Error ? failure_ : platform::SocketFailure::None;
    }

    /// The target of the last `Connect`, and the bytes sent since.
    const std::string& Host() const { return host_; }
    std::uint16_t Port() const { return port_; }
    const std::string& Sent() const { return sent_; }

    /// The peer's side of the current connection. These calls do nothing if there is none.
    void PeerAccepts() {
        Post([this] {
            state_ = platform::SocketState::Connected;
            Raise(on_connect);
        });
    }
    void PeerRefuses() { ConnectionFails(platform::SocketFailure::Refused); }
    void ConnectionFails(platform::SocketFailure why) {
        Post([this, why] { Fail(why); });
    }
    void PeerSends(std::string_view bytes) {
        if (connection_) connection_->on_the_way += bytes;
        PostCheck();
    }
    void PeerCloses() {
        if (connection_) connection_->peer_closed = true;
        PostCheck();
    }
    void PeerResets() {
        if (connection_) connection_->peer_reset = true;
        PostCheck();
    }

    /// For a peer that acts by itself: called after each `Connect`.
    std::function<void()> peer_on_connect;

  private:
    /// One connection. Only the socket owns it, so if an event finds it alive, the socket is alive
    /// and still has this connection.
    struct Connection {
        std::string on_the_way;
        std::string waiting;
        bool peer_closed = false;
        bool peer_reset = false;
        bool any_byte_came = false;
        bool in_handler = false;

        bool HasMore() const {
            return !on_the_way.empty() || !waiting.empty() || peer_closed || peer_reset;
        }
    };

    template <typename Event>
    void Post(Event event) {
        loop_.Post([event, connection = std::weak_ptr(connection_)] {
            if (!connection.expired()) event();
        });
    }

    void Fail(platform::SocketFailure why) {
        state_ = platform::SocketState::Error;
        failure_ = why;
    }

    void PostCheck() {
        Post([this] { Check(); });
    }

    void Check() {
        Connection& now = *connection_;
        if (state_ != platform::SocketState::Connected || now.in_handler) return;
        if (now.on_the_way.empty() && now.peer_reset) {
            Fail(platform::SocketFailure::Reset);
            return;
        }
        if (now.on_the_way.empty() && now.peer_closed) {
            state_ = platform::SocketState::Closing;
            if (now.any_byte_came) Raise(on_data);
            return;
        }
        const std::size_t count =
            std::min(kMostPerEvent - now.waiting.size(), now.on_the_way.size());
        now.waiting.append(now.on_the_way, 0, count);
        now.on_the_way.erase(0, count);
        if (now.waiting.empty()) return;
        now.any_byte_came = true;
        Raise(on_data);
    }

    /// Calls a handler, then checks for what has arrived meanwhile.
    void Raise(const std::function<void()>& member) {
        const std::function<void()> handler = member;  // the call may destroy the socket
        const std::weak_ptr<Connection> raised_in = connection_;
        connection_->in_handler = true;
        if (handler) handler();
        if (const auto connection = raised_in.lock()) {
            connection->in_handler = false;
            if (connection->HasMore()) PostCheck();
        }
    }

    FakeLoop& loop_;
    platform::SocketState state_ = platform::SocketState::Closed;
    platform::SocketFailure failure_ = platform::SocketFailure::None;
    std::string host_;
    std::uint16_t port_ = 0;
    std::string sent_;
    std::shared_ptr<Connection> connection_;
};

}  // namespace fakes
