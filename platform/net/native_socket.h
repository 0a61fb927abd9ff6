#pragma once

#ifdef _WIN32
#include "platform/net/native_socket_windows.h"
#else
#include "platform/net/native_socket_posix.h"
#endif

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

#include "platform/socket.h"

/// The system's own stream sockets, non-blocking. The files included above contain what differs
/// between systems.
namespace platform::native {

/// An address in the form that the system's calls take.
struct Address {
    Address(const sockaddr* address, std::size_t address_size) : size(address_size) {
        std::memcpy(&storage, address, size);
    }

    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&storage); }
    void SetPort(std::uint16_t port) {
        if (storage.ss_family == AF_INET6) {
            reinterpret_cast<sockaddr_in6*>(&storage)->sin6_port = htons(port);
        } else {
            reinterpret_cast<sockaddr_in*>(&storage)->sin_port = htons(port);
        }
    }

    sockaddr_storage storage{};
    std::size_t size;
};

/// The address if `text` is numeric, such as "10.0.0.1" or "::1"; otherwise nothing. Asks no
/// server.
inline std::optional<Address> NumericAddress(const std::string& text) {
    // Brackets belong to the syntax of URLs, but some systems accept them here.
    if (!Startup() || text.find('[') != std::string::npos) return std::nullopt;
    addrinfo hints{};
    hints.ai_flags = AI_NUMERICHOST;
    addrinfo* found = nullptr;
    if (getaddrinfo(text.c_str(), nullptr, &hints, &found) != 0) return std::nullopt;
    const Address address(found->ai_addr, found->ai_addrlen);
    freeaddrinfo(found);
    return address;
}

/// A new socket for connecting to `address`, or `kNoHandle`.
inline Handle OpenStream(const Address& address) {
    if (!Startup()) return kNoHandle;
    const Handle handle = OpenNonBlocking(address.storage.ss_family);
#ifdef SO_NOSIGPIPE
    const int on = 1;
    if (handle != kNoHandle) setsockopt(handle, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
    return handle;
}

/// Starts connecting. Returns false if that fails at once. Otherwise the socket becomes writable
/// when it is connected and, unless `kFailureIsSilent`, when the attempt has failed. `PendingError`
/// then tells the outcome.
inline bool StartConnect(Handle handle, const Address& address) {
    return connect(handle, address.Get(), static_cast<socklen_t>(address.size)) == 0 ||
           IsPending(LastError());
}

/// The error that has occurred on the socket in the background; 0 for none.
inline int PendingError(Handle handle) {
    int error = 0;
    socklen_t size = sizeof error;
    const int result =
        getsockopt(handle, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
    return result == 0 ? error : LastError();
}

/// The meaning of an error of `connect`, `recv` or `send`.
inline SocketFailure FailureOf(int error) {
    if (error == kRefused) return SocketFailure::Refused;
    if (error == kTimedOut) return SocketFailure::Silent;
    for (const int reset : kResets)
        if (error == reset) return SocketFailure::Reset;
    return SocketFailure::Unreachable;
}

}  // namespace platform::native
