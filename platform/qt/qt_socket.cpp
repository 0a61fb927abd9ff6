#include "platform/qt/native_socket.h"
// native_socket.h comes first because the systems' socket headers are touchy about their order.
#include "platform/qt/qt_socket.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QHostInfo>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <utility>

namespace platform {

namespace {

/// What one `on_data` can read at most.
constexpr std::size_t kMostPerEvent = 256 * 1024;

/// How long an address of a host is tried while it has others. Hosts whose first address leads
/// nowhere (IPv6 on a network that drops it) would else never be reached before the timeout.
constexpr std::chrono::seconds kPatience{3};

/// Whether `host` can be a host name or a numeric address at all. What cannot must not reach the
/// name service: it may be of any length and hold any bytes.
bool CanBeHost(const std::string& host) {
    constexpr std::size_t kLongestName = 255;
    return !host.empty() && host.size() <= kLongestName &&
           std::all_of(host.begin(), host.end(), [](char c) { return c > ' ' && c < '\x7f'; });
}

/// An address in the form that the system's calls take.
struct NativeAddress {
    sockaddr_storage storage{};
    std::size_t size = 0;
};

NativeAddress ToNative(const QHostAddress& address, std::uint16_t port) {
    NativeAddress native;
    if (address.protocol() == QAbstractSocket::IPv6Protocol) {
        sockaddr_in6 in{};
        in.sin6_family = AF_INET6;
        in.sin6_port = htons(port);
        const Q_IPV6ADDR bytes = address.toIPv6Address();
        static_assert(sizeof in.sin6_addr == sizeof bytes);
        std::memcpy(&in.sin6_addr, &bytes, sizeof bytes);
        std::memcpy(&native.storage, &in, sizeof in);
        native.size = sizeof in;
    } else {
        sockaddr_in in{};
        in.sin_family = AF_INET;
        in.sin_port = htons(port);
        in.sin_addr.s_addr = htonl(address.toIPv4Address());
        std::memcpy(&native.storage, &in, sizeof in);
        native.size = sizeof in;
    }
    return native;
}

}  // namespace

/// One connection from its start to its close. The socket alone owns it, so whoever finds it alive
/// after a handler has run knows that the socket lives and is still in this connection.
class QtSocket::Connection : public QObject {
  public:
    Connection(QtSocket& socket, std::uint16_t port) : socket_(socket), port_(port) {
        patience_.setSingleShot(true);
        patience_.setInterval(kPatience);
        QObject::connect(&patience_, &QTimer::timeout, this, [this] { ConnectToNextAddress(); });
    }

    ~Connection() override { CloseHandle(); }

    void LookUp(const std::string& host) {
        if (!CanBeHost(host)) {
            state = SocketState::Error;
            return;
        }
        const QString name = QString::fromLatin1(host.data(), qsizetype(host.size()));
        QHostAddress numeric;
        if (numeric.setAddress(name)) {
            // Not by a lookup: that would ask the name service for the address's name.
            addresses_ = {numeric};
            Post(&Connection::ConnectToNextAddress);
            return;
        }
        // The receiver is the application, and the lookup is not aborted when the connection ends:
        // for an aborted one and for one whose receiver is gone, Qt leaks the handler.
        QHostInfo::lookupHost(name, qApp, [self = QPointer(this)](const QHostInfo& found) {
            if (!self) return;
            self->addresses_ = found.addresses();
            self->ConnectToNextAddress();
        });
    }

    void Send(std::string_view bytes) {
        outgoing_ += bytes;
        Flush();
    }

    SocketState state = SocketState::Connecting;
    std::string waiting;

  private:
    void ConnectToNextAddress() {
        CloseHandle();
        while (!addresses_.isEmpty()) {
            const NativeAddress address = ToNative(addresses_.takeFirst(), port_);
            handle_ = native::OpenStream(address.storage.ss_family);
            if (handle_ == native::kNoHandle) continue;
            if (native::StartConnect(handle_, reinterpret_cast<const sockaddr*>(&address.storage),
                                     address.size)) {
                Watch();
                if (!addresses_.isEmpty()) patience_.start();
                return;
            }
            CloseHandle();
        }
        state = SocketState::Error;
    }

    /// Listens for the outcome of the connecting; some systems report a failure as an exception.
    void Watch() {
        readable_ = MakeNotifier(QSocketNotifier::Read, [this] { Check(); });
        readable_->setEnabled(false);
        writable_ = MakeNotifier(QSocketNotifier::Write, [this] {
            state == SocketState::Connecting ? ConnectingDecided() : Flush();
        });
        exception_ = MakeNotifier(QSocketNotifier::Exception, [this] { ConnectToNextAddress(); });
    }

    template <typename Handler>
    std::unique_ptr<QSocketNotifier> MakeNotifier(QSocketNotifier::Type type, Handler handler) {
        auto notifier = std::make_unique<QSocketNotifier>(static_cast<qintptr>(handle_), type);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, this, handler);
        return notifier;
    }

    void ConnectingDecided() {
        if (native::PendingError(handle_) != 0) {
            ConnectToNextAddress();
            return;
        }
        patience_.stop();
        exception_.reset();
        writable_->setEnabled(false);
        state = SocketState::Connected;
        Raise(socket_.on_connect);
    }

    /// Looks for what has come, and raises at most one event for it. Nobody looks while a handler
    /// runs: the notifier is off until a check finds nothing more, and checks are posted
    /// afterwards.
    void Check() {
        if (state != SocketState::Connected) return;
        readable_->setEnabled(false);
        if (waiting.size() < kMostPerEvent && !ReadMore()) return;
        if (waiting.empty()) {
            readable_->setEnabled(true);
        } else {
            Raise(socket_.on_data);
        }
    }

    /// One read. False when the connection has come to its end, which is then dealt with.
    bool ReadMore() {
        static std::array<char, kMostPerEvent> buffer;  // events come on one thread only
        const std::ptrdiff_t count =
            native::Receive(handle_, buffer.data(), kMostPerEvent - waiting.size());
        if (count > 0) {
            waiting.append(buffer.data(), static_cast<std::size_t>(count));
            any_byte_came_ = true;
            return true;
        }
        if (count < 0 && native::IsPending(native::LastError())) return true;
        if (count < 0 || sending_failed_) {
            CloseHandle();
            state = SocketState::Error;
            return false;
        }
        state = SocketState::Closing;
        if (any_byte_came_) Raise(socket_.on_data);
        return false;
    }

    /// Sends what the network takes now; the rest follows when it takes more.
    void Flush() {
        const std::ptrdiff_t count = native::Send(handle_, outgoing_.data(), outgoing_.size());
        if (count >= 0) {
            outgoing_.erase(0, static_cast<std::size_t>(count));
        } else if (!native::IsPending(native::LastError())) {
            // The system tells of a reset once only. What came before it is still read; the end
            // after that is then no orderly close.
            sending_failed_ = true;
            outgoing_.clear();
        }
        writable_->setEnabled(!outgoing_.empty());
    }

    /// Calls a handler, then has a look at what came meanwhile: in a later turn of the loop, so
    /// that the window paints and others have their turn in between. The handler comes as a copy,
    /// since it may destroy the socket that holds it.
    void Raise(std::function<void()> handler) {
        const QPointer<Connection> self(this);
        if (handler) handler();
        if (self && state == SocketState::Connected) Post(&Connection::Check);
    }

    void Post(void (Connection::*step)()) {
        QMetaObject::invokeMethod(
            this, [this, step] { (this->*step)(); }, Qt::QueuedConnection);
    }

    void CloseHandle() {
        patience_.stop();
        readable_.reset();
        writable_.reset();
        exception_.reset();
        if (handle_ != native::kNoHandle) {
            native::CloseHandle(std::exchange(handle_, native::kNoHandle));
        }
    }

    QtSocket& socket_;
    std::uint16_t port_;
    QList<QHostAddress> addresses_;  // those not tried yet
    native::Handle handle_ = native::kNoHandle;
    std::unique_ptr<QSocketNotifier> readable_;
    std::unique_ptr<QSocketNotifier> writable_;
    std::unique_ptr<QSocketNotifier> exception_;
    QTimer patience_;
    std::string outgoing_;
    bool any_byte_came_ = false;
    bool sending_failed_ = false;
};

QtSocket::QtSocket() = default;
QtSocket::~QtSocket() = default;

void QtSocket::Connect(const std::string& host, std::uint16_t port) {
    connection_ = std::make_unique<Connection>(*this, port);
    connection_->LookUp(host);
}

bool QtSocket::SendData(std::string_view bytes) {
    const SocketState state = State();
    if (state != SocketState::Connected && state != SocketState::Closing) return false;
    connection_->Send(bytes);
    return true;
}

std::string QtSocket::GetData() {
    return connection_ ? std::exchange(connection_->waiting, {}) : std::string();
}

void QtSocket::Close() {
    connection_.reset();
}

SocketState QtSocket::State() const {
    return connection_ ? connection_->state : SocketState::Closed;
}

}  // namespace platform
