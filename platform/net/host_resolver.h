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

/// Finds the addresses of hosts without ever holding up the event loop, however many names are
/// looked up and however silent the name servers are.
///
/// A site's host is asked for again with every file, so an answer is kept for a minute, and those
/// who ask for the same name at the same time share one question.
class HostResolver : public QObject {
  public:
    using Addresses = std::vector<native::Address>;
    using Answer = std::function<void(const Addresses&, SocketFailure)>;

    /// The one of this process. It is made when first needed and ends with the application.
    static HostResolver& Shared();

    /// `servers`, such as "127.0.0.1:5353", are asked instead of the system's name servers; "" for
    /// those.
    explicit HostResolver(std::string servers = "", QObject* parent = nullptr);
    ~HostResolver() override;

    /// Looks up `host`, a name or an address. `answer` is called once with what was found, best
    /// first, or with nothing and why: at once where nobody has to be asked, else from the event
    /// loop, and not at all when `receiver` is gone by then. It must not let events run.
    void LookUp(const std::string& host, QObject& receiver, Answer answer);

  protected:
    using Clock = std::chrono::steady_clock;
    /// What the age of an answer is measured by. Virtual, so that tests need not wait for it.
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
