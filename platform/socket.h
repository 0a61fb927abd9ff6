#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace platform {

/// A socket's state. The numbers are compared ("closed or below"), so they are fixed.
enum class SocketState : int {
    Closed = 0,
    Connecting = 3,  ///< resolving the name or connecting
    Connected = 7,
    Closing = 8,  ///< the peer has closed its side
    Error = 9,    ///< refused, reset, unresolvable or out of memory
};

/// Why a connection failed.
enum class SocketFailure {
    None,
    NameUnknown,  ///< no such host
    NotLookedUp,  ///< no name server gave an answer
    Refused,
    Unreachable,
    Silent,  ///< nobody answered in time
    Reset,
    OutOfMemory,
};

/// One asynchronous TCP client connection. All events come from the event loop, on its thread.
///
/// Every implementation is tested against this contract:
///  - `Close` leads to Closed at once, in every state. No event of the old connection follows.
///  - While bytes wait, `on_data` is raised again and again, also for bytes that arrived while an
///    earlier `on_data` of the same connection was running; but calls never nest.
///  - A close by the peer is noticed only outside `on_data`, when every byte before it can be
///    read. The state becomes Closing. If any byte arrived on this connection, `on_data` is then
///    raised exactly once, with the last bytes waiting, or with none if they were read before.
///  - If the peer closes before sending a byte, nothing is raised.
///  - A refused, reset or unresolvable connection goes to Error and raises nothing; so does one
///    whose bytes do not fit into memory. In that state `Failure` tells which it was.
///  - The socket may be closed, connected again or destroyed from inside its own handlers.
///  - One `on_data` can read a limited number of bytes, so that a fast peer cannot delay other
///    events.
class Socket {
  public:
    virtual ~Socket() = default;

    /// Starts a connection to `host`, a name or an address. Closes any old one first.
    virtual void Connect(const std::string& host, std::uint16_t port) = 0;

    /// Sends all of `bytes`, in the background if the network is slow. Returns false and sends
    /// nothing unless the socket is Connected or Closing.
    virtual bool SendData(std::string_view bytes) = 0;

    /// Takes all waiting bytes; "" if there are none.
    virtual std::string GetData() = 0;

    virtual void Close() = 0;
    virtual SocketState State() const = 0;
    /// Why the state is Error; None in every other state.
    virtual SocketFailure Failure() const = 0;

    /// Raised once when the connection is established.
    std::function<void()> on_connect;
    /// Raised when data has arrived, as described above.
    std::function<void()> on_data;
};

}  // namespace platform
