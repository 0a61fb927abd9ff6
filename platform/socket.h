#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace platform {

/// What a socket is doing. The numbers are compared ("closed or below"), so they are fixed.
enum class SocketState : int {
    Closed = 0,
    Connecting = 3,  ///< resolving the name or connecting
    Connected = 7,
    Closing = 8,  ///< the peer has closed its side
    Error = 9,    ///< refused, reset, unresolvable or out of memory
};

/// Why a connection came to nothing.
enum class SocketFailure {
    None,
    NameUnknown,  ///< there is no host of that name
    NotLookedUp,  ///< no name server said whether there is one
    Refused,
    Unreachable,
    Silent,  ///< nobody answered for so long that the system gave up
    Reset,
    OutOfMemory,
};

/// One asynchronous TCP client connection. All events come from the event loop, on its thread.
///
/// The contract that every implementation is tested against:
///  - `Close` leads to Closed at once, in every state, and no event of the old connection follows.
///  - While bytes wait, `on_data` is raised again and again, also for bytes that came in while an
///    earlier `on_data` of the same connection was still running; but never inside that one.
///  - A close by the peer is noticed only outside `on_data`, when every byte before it can be
///    read. Then the state is Closing, and if any byte came on this connection, `on_data` is raised
///    exactly once in that state (with the last bytes waiting, or with none when they were read
///    before).
///  - A peer that closes before any byte raises nothing.
///  - A refused, reset or unresolvable connection goes to Error and raises nothing; so does one
///    for whose bytes there is no memory. `Failure` tells which it was, in that state alone.
///  - The socket may be closed, connected again or destroyed from inside its own handlers.
///  - What one `on_data` can read is bounded, so that a fast peer cannot keep other events waiting.
class Socket {
  public:
    virtual ~Socket() = default;

    /// Starts a connection to `host` (a name or an address), closing any old one first.
    virtual void Connect(const std::string& host, std::uint16_t port) = 0;

    /// Sends all of `bytes`, in the background where the network is slow. False, and nothing is
    /// sent, unless the socket is Connected or Closing.
    virtual bool SendData(std::string_view bytes) = 0;

    /// Takes every byte that waits now; "" when none does.
    virtual std::string GetData() = 0;

    virtual void Close() = 0;
    virtual SocketState State() const = 0;
    /// Why the state is Error; None in every other one.
    virtual SocketFailure Failure() const = 0;

    /// Raised once when the connection stands.
    std::function<void()> on_connect;
    /// Raised when data has arrived, see above.
    std::function<void()> on_data;
};

}  // namespace platform
