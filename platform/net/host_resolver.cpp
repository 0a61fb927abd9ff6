#include "platform/net/host_resolver.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

#include "platform/net/name_query.h"
#include "text/text.h"

namespace platform {

namespace {

constexpr std::chrono::seconds kAnswerIsKept{60};
constexpr std::size_t kLongestName = 253;

bool IsNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
}

/// Whether a host can have this name. What a page calls a host may have any length and contain any
/// bytes, and no name server needs to see that.
bool CanBeName(const std::string& name) {
    return std::all_of(name.begin(), name.end(), IsNameCharacter) &&
           ("." + name + ".").find("..") == std::string::npos;
}

/// The canonical spelling of a name. Names ignore case, and a final dot changes nothing. "" if
/// `host` can be neither a name nor an address.
std::string Normalised(const std::string& host) {
    std::string name = host;
    if (name.ends_with('.')) name.pop_back();
    if (name.size() > kLongestName || name.find('\0') != std::string::npos) return "";
    return text::LowerCase(name);
}

}  // namespace

HostResolver& HostResolver::Shared() {
    static QPointer<HostResolver> shared;
    if (!shared) shared = new HostResolver("", QCoreApplication::instance());
    return *shared;
}

HostResolver::HostResolver(std::string servers, QObject* parent)
    : QObject(parent), servers_(std::move(servers)) {}

HostResolver::~HostResolver() = default;

void HostResolver::LookUp(const std::string& host, QObject& receiver, Answer answer) {
    const std::string name = Normalised(host);
    if (name.empty()) {
        answer({}, SocketFailure::NameUnknown);
    } else if (const auto numeric = native::NumericAddress(name)) {
        answer({*numeric}, SocketFailure::None);
    } else if (!CanBeName(name)) {
        answer({}, SocketFailure::NameUnknown);
    } else if (const auto known = known_.find(name);
               known != known_.end() && Now() < known->second.until) {
        answer(known->second.addresses, SocketFailure::None);
    } else {
        Ask(name, {&receiver, std::move(answer)});
    }
}

void HostResolver::Ask(const std::string& name, Asker asker) {
    std::vector<Asker>& askers = asked_[name];
    askers.push_back(std::move(asker));
    if (askers.size() > 1) return;
    new NameQuery(
        name, servers_,
        [this, name](const Addresses& found, SocketFailure why) { Take(name, found, why); }, this);
}

void HostResolver::Take(const std::string& name, const Addresses& addresses, SocketFailure why) {
    const auto askers = asked_.extract(name);
    for (const Asker& asker : askers.mapped())
        if (asker.receiver) asker.answer(addresses, why);
    const auto now = Now();
    std::erase_if(known_, [now](const auto& known) { return known.second.until <= now; });
    if (!addresses.empty()) known_[name] = {addresses, now + kAnswerIsKept};
}

}  // namespace platform
