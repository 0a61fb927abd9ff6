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

/// Readies the system's sockets for this process, once.
inline bool Startup() {
    return true;
}

inline int LastError() {
    return errno;
}
/// The operation would have had to wait, or goes on in the background.
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

/// The number of bytes read, 0 at the peer's close, below 0 for `LastError`.
inline std::ptrdiff_t Receive(Handle handle, char* buffer, std::size_t size) {
    return recv(handle, buffer, size, 0);
}

/// The number of bytes taken for sending, below 0 for `LastError`.
inline std::ptrdiff_t Send(Handle handle, const char* bytes, std::size_t size) {
#ifdef MSG_NOSIGNAL
    // Writing to a connection that is gone is a returned error, not the end of the process.
    return send(handle, bytes, size, MSG_NOSIGNAL);
#else
    return send(handle, bytes, size, 0);
#endif
}

using PollEntry = pollfd;
inline int PollAtOnce(PollEntry* entries, std::size_t count) {
    return poll(entries, static_cast<nfds_t>(count), 0);
}

/// A connecting that failed makes the socket writable, as one that succeeded does.
inline constexpr bool kFailureIsSilent = false;
inline bool HasFailed(Handle) {
    return false;
}

}  // namespace platform::native
