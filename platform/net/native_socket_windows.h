#pragma once

// winsock2.h must come before anything that includes windows.h.
#include <winsock2.h>
#include <ws2tcpip.h>

#include <cstddef>

namespace platform::native {

using Handle = SOCKET;
inline constexpr Handle kNoHandle = INVALID_SOCKET;

/// Initializes the system's sockets once per process.
inline bool Startup() {
    static const bool started = [] {
        WSADATA data;
        return WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }();
    return started;
}

inline int LastError() {
    return WSAGetLastError();
}
/// Whether the operation would block or continues in the background.
inline bool IsPending(int error) {
    return error == WSAEWOULDBLOCK || error == WSAEINPROGRESS;
}
inline constexpr int kRefused = WSAECONNREFUSED;
inline constexpr int kTimedOut = WSAETIMEDOUT;
inline constexpr int kResets[] = {WSAECONNRESET, WSAECONNABORTED};

inline void CloseHandle(Handle handle) {
    closesocket(handle);
}

inline Handle OpenNonBlocking(int family) {
    const Handle handle = socket(family, SOCK_STREAM, 0);
    u_long on = 1;
    if (handle == kNoHandle || ioctlsocket(handle, FIONBIO, &on) == 0) return handle;
    closesocket(handle);
    return kNoHandle;
}

/// Returns the number of bytes read; 0 if the peer has closed; below 0 on an error, see
/// `LastError`.
inline std::ptrdiff_t Receive(Handle handle, char* buffer, std::size_t size) {
    return recv(handle, buffer, static_cast<int>(size), 0);
}

/// Returns the number of bytes accepted for sending; below 0 on an error, see `LastError`.
inline std::ptrdiff_t Send(Handle handle, const char* bytes, std::size_t size) {
    constexpr std::size_t kMost = 65536;  // the size is an int
    return send(handle, bytes, static_cast<int>(size < kMost ? size : kMost), 0);
}

using PollEntry = WSAPOLLFD;
inline int PollAtOnce(PollEntry* entries, std::size_t count) {
    return WSAPoll(entries, static_cast<ULONG>(count), 0);
}

/// Whether the attempt to connect has failed. A failure before Qt watches the socket is never
/// reported, so the caller has to ask now and then.
inline constexpr bool kFailureIsSilent = true;
inline bool HasFailed(Handle handle) {
    fd_set failed;
    FD_ZERO(&failed);
    failed.fd_count = 1;
    failed.fd_array[0] = handle;
    timeval at_once{};
    return select(0, nullptr, nullptr, &failed, &at_once) > 0;
}

}  // namespace platform::native
