#include "platform/net/name_query.h"

#include <utility>

namespace platform {

namespace {

/// An unanswered query is sent again after a wait that doubles each time. A single silent server is
/// given up after 14 s.
constexpr int kFirstWaitMilliseconds = 2000;
constexpr int kTries = 3;

/// Initializes c-ares once per process.
bool Startup() {
    static const bool started =
        native::Startup() && ares_library_init(ARES_LIB_INIT_ALL) == ARES_SUCCESS;
    return started;
}

std::vector<native::Address> AddressesIn(const ares_addrinfo* found) {
    std::vector<native::Address> addresses;
    for (const ares_addrinfo_node* node = found ? found->nodes : nullptr; node;
         node = node->ai_next) {
        addresses.emplace_back(node->ai_addr, node->ai_addrlen);
    }
    return addresses;
}

/// If a server says that the name does not exist or has no address, the name is unknown. Any other
/// error leaves that open.
SocketFailure FailureOf(int status) {
    switch (status) {
        case ARES_SUCCESS:
            return SocketFailure::None;
        case ARES_ENOTFOUND:
        case ARES_ENODATA:
        case ARES_EBADNAME:
            return SocketFailure::NameUnknown;
        default:
            return SocketFailure::NotLookedUp;
    }
}

}  // namespace

NameQuery::NameQuery(const std::string& name, const std::string& servers, Answered answered,
                     QObject* parent)
    : QObject(parent), answered_(std::move(answered)) {
    again_.setSingleShot(true);
    QObject::connect(&again_, &QTimer::timeout, this, [this] { Process(ARES_SOCKET_BAD); });
    if (!Open(name.find('.') == std::string::npos)) {
        Answer({}, SocketFailure::NotLookedUp);
        return;
    }
    if (!servers.empty()) ares_set_servers_ports_csv(channel_, servers.c_str());
    const ares_addrinfo_hints both_families{};
    ares_getaddrinfo(
        channel_, name.c_str(), nullptr, &both_families,
        [](void* self, int status, int, ares_addrinfo* found) {
            static_cast<NameQuery*>(self)->Answer(AddressesIn(found), FailureOf(status));
            ares_freeaddrinfo(found);
        },
        this);
    WaitOn();
}

NameQuery::~NameQuery() {
    answered_ = nullptr;  // c-ares calls back for every query that it cancels
    if (channel_) ares_destroy(channel_);
}

/// `search_domains`: whether to try the name in the system's own domains, too. A name with a dot is
/// complete, and for a misspelt one this would only add queries.
bool NameQuery::Open(bool search_domains) {
    char hosts_then_servers[] = "fb";  // in c-ares' notation
    ares_options options{};
    options.lookups = hosts_then_servers;
    options.timeout = kFirstWaitMilliseconds;
    options.tries = kTries;
    options.sock_state_cb = [](void* self, ares_socket_t handle, int read, int write) {
        auto* const query = static_cast<NameQuery*>(self);
        query->Watch(handle, QSocketNotifier::Read, read != 0);
        query->Watch(handle, QSocketNotifier::Write, write != 0);
    };
    options.sock_state_cb_data = this;
    int given = ARES_OPT_LOOKUPS | ARES_OPT_TIMEOUTMS | ARES_OPT_TRIES | ARES_OPT_SOCK_STATE_CB;
    if (!search_domains) given |= ARES_OPT_DOMAINS;  // the options list none
    return Startup() && ares_init_options(&channel_, &options, given) == ARES_SUCCESS;
}

/// c-ares calls this to start or stop watching one of its sockets.
void NameQuery::Watch(ares_socket_t handle, QSocketNotifier::Type type, bool wanted) {
    if (!wanted) {
        watches_.erase({handle, type});
        return;
    }
    std::unique_ptr<SocketWatch>& watch = watches_[{handle, type}];
    if (watch) return;
    watch = std::make_unique<SocketWatch>(handle, type, [this, handle] { Process(handle); });
}

void NameQuery::Process(ares_socket_t ready) {
    ares_process_fd(channel_, ready, ready);
    WaitOn();
}

/// Schedules a call for when a query must be sent again or given up.
void NameQuery::WaitOn() {
    timeval left{};
    if (!ares_timeout(channel_, nullptr, &left)) {
        again_.stop();
        return;
    }
    again_.start(static_cast<int>(left.tv_sec * 1000 + left.tv_usec / 1000 + 1));
}

void NameQuery::Answer(std::vector<native::Address> addresses, SocketFailure why) {
    if (!answered_) return;
    answered_(std::move(addresses), why);
    deleteLater();  // c-ares may still be using the channel
}

}  // namespace platform
