#include "platform/net/stream.h"

#include <QPointer>
#include <array>
#include <cstddef>
#include <new>
#include <utility>

namespace platform {

namespace {

/// The most that one `on_data` can read.
constexpr std::size_t kMostPerEvent = 256 * 1024;

}  // namespace

Stream::Stream(native::Handle handle, const std::function<void()>& on_data)
    : on_data_(on_data), handle_(handle) {
    readable_ =
        std::make_unique<SocketWatch>(handle_, QSocketNotifier::Read, [this] { Readable(); });
}

Stream::~Stream() {
    CloseHandle();
}

void Stream::Send(std::string_view bytes) {
    outgoing_ += bytes;
    Flush();
}

std::string Stream::Take() {
    return std::exchange(waiting_, {});
}

/// Takes the handler by value, because it may destroy the socket that holds it.
void Stream::Raise(std::function<void()> handler) {
    const QPointer<Stream> self(this);
    in_handler_ = true;
    if (handler) handler();
    if (!self) return;
    in_handler_ = false;
    if (state_ != SocketState::Connected) return;
    readable_->setEnabled(waiting_.empty());
    if (!waiting_.empty()) {
        // The handler has left bytes, and the system will not report them again.
        QMetaObject::invokeMethod(this, &Stream::Check, Qt::QueuedConnection);
    }
}

/// The system reports unread bytes again in every iteration of the loop. So one event at a time is
/// enough, and the window can paint in between.
void Stream::Readable() {
    if (in_handler_) {
        readable_->setEnabled(false);  // otherwise a nested loop would spin
    } else {
        Check();
    }
}

/// Reads what has arrived and raises at most one event.
void Stream::Check() {
    if (state_ != SocketState::Connected) return;
    if (waiting_.size() < kMostPerEvent && !ReadMore()) return;
    if (!waiting_.empty()) Raise(on_data_);
}

/// Reads once. Returns false after it has handled the end of the connection.
bool Stream::ReadMore() {
    static std::array<char, kMostPerEvent> buffer;  // events come on one thread only
    const std::ptrdiff_t count =
        native::Receive(handle_, buffer.data(), kMostPerEvent - waiting_.size());
    if (count > 0) return Keep({buffer.data(), static_cast<std::size_t>(count)});
    const int error = count < 0 ? native::LastError() : 0;
    if (count < 0 && native::IsPending(error)) return true;
    if (count < 0 || sending_failed_) {
        Fail(count < 0 ? native::FailureOf(error) : SocketFailure::Reset);
        return false;
    }
    readable_.reset();
    state_ = SocketState::Closing;
    if (any_byte_came_) Raise(on_data_);
    return false;
}

/// Fails, and returns false, if there is no memory for the bytes: a response with a gap is useless.
bool Stream::Keep(std::string_view bytes) {
    try {
        waiting_ += bytes;
    } catch (const std::bad_alloc&) {
        Fail(SocketFailure::OutOfMemory);
        return false;
    }
    any_byte_came_ = true;
    return true;
}

void Stream::Fail(SocketFailure why) {
    CloseHandle();
    state_ = SocketState::Error;
    failure_ = why;
}

/// Sends what the network accepts now; the rest follows when it accepts more.
void Stream::Flush() {
    const std::ptrdiff_t count = native::Send(handle_, outgoing_.data(), outgoing_.size());
    if (count >= 0) {
        outgoing_.erase(0, static_cast<std::size_t>(count));
    } else if (!native::IsPending(native::LastError())) {
        // The system reports a reset only once. The bytes before it are still read, but the end of
        // the stream after them is then not an orderly close.
        sending_failed_ = true;
        outgoing_.clear();
    }
    if (outgoing_.empty()) {
        writable_.reset();
    } else if (!writable_) {
        writable_ =
            std::make_unique<SocketWatch>(handle_, QSocketNotifier::Write, [this] { Flush(); });
    }
}

void Stream::CloseHandle() {
    readable_.reset();
    writable_.reset();
    if (handle_ != native::kNoHandle) {
        native::CloseHandle(std::exchange(handle_, native::kNoHandle));
    }
}

}  // namespace platform
