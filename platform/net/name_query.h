#pragma once

#include <ares.h>

#include <QObject>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/net/native_socket.h"
#include "platform/net/socket_watch.h"

namespace platform {

/// One question for the addresses of a name: the system's file of hosts is read, then its name
/// servers are asked, on the event loop. Destroying it takes the question back.
class NameQuery : public QObject {
  public:
    /// Called once with the addresses, best first, or with none and why. It must not destroy the
    /// query, which does that itself afterwards.
    using Answered = std::function<void(std::vector<native::Address>, SocketFailure)>;

    /// `servers` is a list such as "127.0.0.1:5353" to be asked instead of the system's; "" for
    /// those.
    NameQuery(const std::string& name, const std::string& servers, Answered answered,
              QObject* parent);
    ~NameQuery() override;

  private:
    bool Open(bool search_domains);
    void Watch(ares_socket_t handle, QSocketNotifier::Type type, bool wanted);
    void Process(ares_socket_t ready);
    void WaitOn();
    void Answer(std::vector<native::Address> addresses, SocketFailure why);

    Answered answered_;
    ares_channel channel_ = nullptr;
    std::map<std::pair<ares_socket_t, QSocketNotifier::Type>, std::unique_ptr<SocketWatch>>
        watches_;
    QTimer again_;
};

}  // namespace platform
