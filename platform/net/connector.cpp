#include "platform/net/connector.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace platform {

namespace {

/// How long one address of a host is tried while there are others. Without this limit, a host whose
/// first address leads nowhere (IPv6 on a network that drops it) would not be reached before the
/// timeout.
constexpr std::chrono::seconds kPatience{3};

constexpr std::chrono::milliseconds kBetweenLooks{100};

}  // namespace

Connector::Connector(HostResolver& resolver, const std::string& host, std::uint16_t port,
                     Connected connected)
    : port_(port), connected_(std::move(connected)) {
    patience_.setSingleShot(true);
    patience_.setInterval(kPatience);
    QObject::connect(&patience_, &QTimer::timeout, this, [this] {
        NoteFailure(SocketFailure::Silent);
        TryNext();
    });
    look_for_failure_.setInterval(kBetweenLooks);
    QObject::connect(&look_for_failure_, &QTimer::timeout, this, [this] {
        if (native::HasFailed(handle_)) Decided();
    });
    resolver.LookUp(host, *this, [this](const HostResolver::Addresses& found, SocketFailure why) {
        addresses_.assign(found.rbegin(), found.rend());
        if (found.empty()) tried_ = why;
        TryNext();
    });
}

Connector::~Connector() {
    Drop();
}

void Connector::TryNext() {
    Drop();
    while (!addresses_.empty()) {
        const native::Address address = addresses_.back();
        addresses_.pop_back();
        if (Start(address)) return;
        Drop();
    }
    failure_ = tried_;
}

bool Connector::Start(native::Address address) {
    address.SetPort(port_);
    handle_ = native::OpenStream(address);
    if (handle_ == native::kNoHandle) return false;
    if (!native::StartConnect(handle_, address)) {
        NoteFailure(native::FailureOf(native::LastError()));
        return false;
    }
    decided_ =
        std::make_unique<SocketWatch>(handle_, QSocketNotifier::Write, [this] { Decided(); });
    if (native::kFailureIsSilent) look_for_failure_.start();
    if (!addresses_.empty()) patience_.start();
    return true;
}

void Connector::Decided() {
    const int error = native::PendingError(handle_);
    if (error != 0 || native::HasFailed(handle_)) {
        NoteFailure(native::FailureOf(error));
        TryNext();
        return;
    }
    const native::Handle handle = std::exchange(handle_, native::kNoHandle);
    Drop();
    const Connected connected = std::move(connected_);  // it may destroy this object
    connected(handle);
}

/// Of several failures, the first that says more than "unreachable" is kept.
void Connector::NoteFailure(SocketFailure why) {
    if (tried_ == SocketFailure::Unreachable) tried_ = why;
}

/// Abandons the current attempt.
void Connector::Drop() {
    patience_.stop();
    decided_.reset();
    look_for_failure_.stop();
    if (handle_ != native::kNoHandle) {
        native::CloseHandle(std::exchange(handle_, native::kNoHandle));
    }
}

}  // namespace platform
