#pragma once

#include <cstddef>

#ifdef _WIN32
// The order matters: winsock2.h must come before anything that includes windows.h.
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#endif

/// The system's own stream sockets, non-blocking, with the few differences between systems evened
/// out.
namespace platform::native {

#ifdef _WIN32
using Handle = SOCKET;
inline constexpr Handle kNoHandle = INVALID_SOCKET;

inline int LastError() {
    return WSAGetLastError();
}
/// The operation would have had to wait, or goes on in the background.
inline bool IsPending(int error) {
    return error == WSAEWOULDBLOCK || error == WSAEINPROGRESS;
}
inline void CloseHandle(Handle handle) {
    closesocket(handle);
}
inline bool MakeNonBlocking(Handle handle) {
    u_long on = 1;
    return ioctlsocket(handle, FIONBIO, &on) == 0;
}
/// Readies the system's sockets for this process, once.
inline bool Startup() {
    static const bool started = [] {
        WSADATA data;
        return WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }();
    return started;
}
inline constexpr int kSendFlags = 0;
#else
using Handle = int;
inline constexpr Handle kNoHandle = -1;

inline int LastError() {
    return errno;
}
/// The operation would have had to wait, or goes on in the background.
inline bool IsPending(int error) {
    return error == EAGAIN || error == EWOULDBLOCK || error == EINPROGRESS || error == EINTR;
}
inline void CloseHandle(Handle handle) {
    close(handle);
}
inline bool MakeNonBlocking(Handle handle) {
    return fcntl(handle, F_SETFL, fcntl(handle, F_GETFL) | O_NONBLOCK) == 0 &&
           fcntl(handle, F_SETFD, FD_CLOEXEC) == 0;
}
inline bool Startup() {
    return true;
}
#ifdef MSG_NOSIGNAL
// Writing to a connection that is gone is a returned error, not the end of the process.
inline constexpr int kSendFlags = MSG_NOSIGNAL;
#else
inline constexpr int kSendFlags = 0;
#endif
#endif

/// A fresh socket of an address family, or `kNoHandle`.
inline Handle OpenStream(int family) {
    if (!Startup()) return kNoHandle;
    const Handle handle = socket(family, SOCK_STREAM, 0);
    if (handle == kNoHandle) return kNoHandle;
#ifdef SO_NOSIGPIPE
    const int on = 1;
    setsockopt(handle, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
    if (MakeNonBlocking(handle)) return handle;
    CloseHandle(handle);
    return kNoHandle;
}

/// Starts connecting. False when that failed at once; else the socket becomes writable when it is
/// decided, and `PendingError` tells how.
inline bool StartConnect(Handle handle, const sockaddr* address, std::size_t size) {
    return connect(handle, address, static_cast<socklen_t>(size)) == 0 || IsPending(LastError());
}

/// The error that the socket has met in the background, 0 for none.
inline int PendingError(Handle handle) {
    int error = 0;
    socklen_t size = sizeof error;
    const int result =
        getsockopt(handle, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
    return result == 0 ? error : LastError();
}

/// The number of bytes read, 0 at the peer's close, below 0 for `LastError`.
inline std::ptrdiff_t Receive(Handle handle, char* buffer, std::size_t size) {
#ifdef _WIN32
    return recv(handle, buffer, static_cast<int>(size), 0);
#else
    return recv(handle, buffer, size, 0);
#endif
}

/// The number of bytes taken for sending, below 0 for `LastError`.
inline std::ptrdiff_t Send(Handle handle, const char* bytes, std::size_t size) {
#ifdef _WIN32
    return send(handle, bytes, static_cast<int>(size < 65536 ? size : 65536), kSendFlags);
#else
    return send(handle, bytes, size, kSendFlags);
#endif
}

}  // namespace platform::native
