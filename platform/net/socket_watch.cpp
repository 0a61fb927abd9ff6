#include "platform/net/socket_watch.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <vector>

namespace platform {

namespace {

std::vector<SocketWatch*> g_watches;
SocketWatch::Moment g_now = 0;

short PollEvents(QSocketNotifier::Type type) {
    switch (type) {
        case QSocketNotifier::Read:
            return POLLIN;
        case QSocketNotifier::Write:
            return POLLOUT;
        case QSocketNotifier::Exception:
            break;
    }
    return 0;  // errors are reported without being requested
}

/// On Windows, Qt runs timers and paints only when no message waits, and socket events are
/// messages. Without this, a fast peer would starve both.
void LetOthersIn() {
#ifdef Q_OS_WIN
    constexpr qint64 kMilliseconds = 10;
    static QElapsedTimer since_last;
    if (since_last.isValid() && !since_last.hasExpired(kMilliseconds)) return;
    since_last.start();
    QCoreApplication::sendPostedEvents();
#endif
}

}  // namespace

SocketWatch::SocketWatch(native::Handle handle, Type type, const std::function<void()>& handler)
    : QSocketNotifier(static_cast<qintptr>(handle), type), handle_(handle), called_(++g_now) {
    QObject::connect(this, &QSocketNotifier::activated, this, handler);
    g_watches.push_back(this);
}

SocketWatch::~SocketWatch() {
    std::erase(g_watches, this);
}

SocketWatch::Moment SocketWatch::Now() {
    return g_now;
}

bool SocketWatch::AnyWaitsSince(Moment moment) {
    static std::vector<native::PollEntry> entries;  // static, to save an allocation at every tick
    entries.clear();
    for (const SocketWatch* watch : g_watches) {
        if (!watch->isEnabled() || watch->called_ > moment) continue;
        entries.push_back({watch->handle_, PollEvents(watch->type()), 0});
    }
    return !entries.empty() && native::PollAtOnce(entries.data(), entries.size()) > 0;
}

bool SocketWatch::event(QEvent* event) {
    called_ = ++g_now;
    const bool recognized = QSocketNotifier::event(event);  // may destroy this object
    LetOthersIn();
    return recognized;
}

}  // namespace platform
