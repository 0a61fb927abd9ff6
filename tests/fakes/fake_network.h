#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/fakes/fake_socket.h"

namespace fakes {

/// Web servers for `FakeSocket`s. A server accepts a connection, answers one GET and closes. An
/// unknown address gets a 404.
class FakeNetwork {
  public:
    virtual ~FakeNetwork() = default;

    /// Serves `body` under an address such as "site.com/docs/a.html".
    void PutPage(const std::string& address, const std::string& body) {
        responses_[address] = "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n" + body;
    }

    /// Puts `socket` on this network, which must outlive it.
    virtual void Attach(FakeSocket& socket) {
        socket.peer_on_connect = [](FakeSocket& peer) { peer.PeerAccepts(); };
        socket.peer_on_data = [this](FakeSocket& peer) { Respond(peer); };
    }

    /// The addresses requested so far, in order.
    const std::vector<std::string>& requests() const { return requests_; }

  private:
    void Respond(FakeSocket& peer) {
        const std::string& request = peer.sent();
        if (!request.starts_with("GET ") || !request.ends_with("\r\n\r\n")) return;
        const std::string path = request.substr(4, request.find(" HTTP/1.0\r\n") - 4);
        requests_.push_back(peer.host() + path);
        const auto response = responses_.find(requests_.back());
        if (response == responses_.end()) {
            peer.PeerSends("HTTP/1.0 404 Not Found\r\n\r\nNot found.");
        } else {
            peer.PeerSends(response->second);
        }
        peer.PeerCloses();
    }

    std::map<std::string, std::string> responses_;
    std::vector<std::string> requests_;
};

}  // namespace fakes
