#pragma once

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace platform::native {

using Handle = int;
inline constexpr Handle kNoHandle = -1;

/// Initializes the system's sockets once per process.
inline bool Startup() {
    return true;
}

inline int LastError() {
    return errno;
}
/// Whether the operation would block or continues in the background.
inline bool IsPending(int error) {
    return error == EAGAIN || error == EWOULDBLOCK || error == EINPROGRESS || error == EINTR;
}
inline constexpr int kRefused = ECONNREFUSED;
inline constexpr int kTimedOut = ETIMEDOUT;
inline constexpr int kResets[] = {ECONNRESET, ECONNABORTED, EPIPE};

inline void CloseHandle(Handle handle) {
    close(handle);
}

inline Handle OpenNonBlocking(int family) {
#ifdef SOCK_NONBLOCK
    return socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
#else
    const Handle handle = socket(family, SOCK_STREAM, 0);
    if (handle == kNoHandle ||
        (fcntl(handle, F_SETFL, O_NONBLOCK) == 0 && fcntl(handle, F_SETFD, FD_CLOEXEC) == 0)) {
        return handle;
    }
    close(handle);
    return kNoHandle;
#endif
}

/// Returns the number of bytes read; 0 if the peer has closed; below 0 on an error, see
/// `LastError`.
inline std::ptrdiff_t Receive(Handle handle, char* buffer, std::size_t size) {
    return recv(handle, buffer, size, 0);
}

/// Returns the number of bytes accepted for sending; below 0 on an error, see `LastError`.
inline std::ptrdiff_t Send(Handle handle, const char* bytes, std::size_t size) {
#ifdef MSG_NOSIGNAL
    // Writing to a closed connection must return an error, not kill the process.
    return send(handle, bytes, size, MSG_NOSIGNAL);
#else
    return send(handle, bytes, size, 0);
#endif
}

using PollEntry = pollfd;
inline int PollAtOnce(PollEntry* entries, std::size_t count) {
    return poll(entries, static_cast<nfds_t>(count), 0);
}

/// A failed attempt to connect makes the socket writable, just like a successful one.
inline constexpr bool kFailureIsSilent = false;
inline bool HasFailed(Handle) {
    return false;
}

}  // namespace platform::native
