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

/// A query for the addresses of a name. Reads the system's hosts file, then asks its name servers,
/// all on the event loop. Destroying it cancels the query.
class NameQuery : public QObject {
  public:
    /// Called once, with the addresses, best first, or with none and the reason. It must not
    /// destroy the query, which destroys itself afterwards.
    using Answered = std::function<void(std::vector<native::Address>, SocketFailure)>;

    /// `servers`, for example "127.0.0.1:5353", replace the system's name servers; "" keeps those.
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
