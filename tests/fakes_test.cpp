#include "tests/contracts/socket_contract.h"
#include "tests/contracts/timer_contract.h"
#include "tests/fakes/fake_socket.h"
#include "tests/fakes/fake_timer.h"

// The in-memory twins that the engine's tests use fulfil the contracts of the real ones.

namespace {

struct VirtualTime {
    fakes::FakeLoop loop;

    std::int64_t Now() const { return loop.Now(); }
    void Wait(std::int64_t milliseconds) { loop.Advance(milliseconds); }
    void Block(std::int64_t milliseconds) { loop.Block(milliseconds); }
    std::unique_ptr<platform::Timer> NewTimer() { return std::make_unique<fakes::FakeTimer>(loop); }
    void Settle() { Wait(1000); }
    bool RunUntil(const std::function<bool()>& condition) {
        for (int i = 0; i < 10'000 && !condition(); ++i)
            loop.Advance(1);
        return condition();
    }
};

struct FakeSocketBench : VirtualTime {
    std::unique_ptr<fakes::FakeSocket> socket = std::make_unique<fakes::FakeSocket>(loop);

    void Connect() { socket->Connect("site.com", 80); }
    void ConnectRefused() {
        Connect();
        socket->PeerRefuses();
    }
    void Accept() { socket->PeerAccepts(); }
    void PeerSends(const std::string& bytes) { socket->PeerSends(bytes); }
    void PeerCloses() { socket->PeerCloses(); }
    void PeerResets() { socket->PeerResets(); }
    std::string PeerReads(std::size_t) { return socket->Sent(); }
};

}  // namespace

namespace contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SocketContract, FakeSocketBench);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, TimerContract, VirtualTime);
}  // namespace contracts
