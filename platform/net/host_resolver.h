#pragma once

#include <QObject>
#include <QPointer>
#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/net/native_socket.h"

namespace platform {

/// Finds the addresses of hosts. Never blocks the event loop, however many names are looked up and
/// however slow the name servers are.
///
/// Every file of a site asks for its host again. So an answer is kept for a minute, and
/// simultaneous requests for one name share one query.
class HostResolver : public QObject {
  public:
    using Addresses = std::vector<native::Address>;
    using Answer = std::function<void(const Addresses&, SocketFailure)>;

    /// The instance of this process. It is created when first needed and destroyed with the
    /// application.
    static HostResolver& Shared();

    /// `servers`, for example "127.0.0.1:5353", replace the system's name servers; "" keeps those.
    explicit HostResolver(std::string servers = "", QObject* parent = nullptr);
    ~HostResolver() override;

    /// Looks up `host`, a name or an address. Calls `answer` once, with the addresses, best first,
    /// or with none and the reason: at once if no server has to be asked, otherwise from the event
    /// loop. Does not call it if `receiver` is destroyed first. `answer` must not let events run.
    void LookUp(const std::string& host, QObject& receiver, Answer answer);

  protected:
    using Clock = std::chrono::steady_clock;
    /// The clock that measures an answer's age. Virtual, so that tests need not wait.
    virtual Clock::time_point Now() const { return Clock::now(); }

  private:
    struct Asker {
        QPointer<QObject> receiver;
        Answer answer;
    };
    struct Known {
        Addresses addresses;
        Clock::time_point until;
    };

    void Ask(const std::string& name, Asker asker);
    void Take(const std::string& name, const Addresses& addresses, SocketFailure why);

    std::string servers_;
    std::map<std::string, std::vector<Asker>> asked_;
    std::map<std::string, Known> known_;
};

}  // namespace platform
