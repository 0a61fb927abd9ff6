#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/contracts/socket_contract.h"
#include "tests/contracts/timer_contract.h"
#include "tests/fakes/fake_network.h"
#include "tests/fakes/fake_timer.h"

// The twins that the engine's tests stand on keep to the same contracts as the real things.

namespace {

struct FakeSocketBench {
    fakes::FakeLoop loop;
    std::unique_ptr<fakes::FakeSocket> socket = std::make_unique<fakes::FakeSocket>(loop);

    void NewSocket() { socket = std::make_unique<fakes::FakeSocket>(loop); }
    void Connect() { socket->Connect("site.com", 80); }
    void ConnectRefused() {
        Connect();
        socket->PeerRefuses();
    }
    void Accept() { socket->PeerAccepts(); }
    void PeerSends(const std::string& bytes) { socket->PeerSends(bytes); }
    void PeerCloses() { socket->PeerCloses(); }
    void PeerResets() { socket->PeerResets(); }
    void PeerSendsAndCloses(const std::string& bytes) {
        PeerSends(bytes);
        PeerCloses();
    }
    std::string PeerReads(std::size_t) { return socket->sent(); }
    bool RunUntil(const std::function<bool()>& condition) {
        loop.RunUntilIdle();
        return condition();
    }
    void Wait(std::int64_t milliseconds) { loop.Advance(milliseconds); }
    void Settle() { loop.Advance(1000); }
};

struct FakeTimerBench {
    fakes::FakeLoop loop;

    std::unique_ptr<platform::Timer> NewTimer() { return std::make_unique<fakes::FakeTimer>(loop); }
    std::int64_t Now() const { return loop.Now(); }
    void Wait(std::int64_t milliseconds) { loop.Advance(milliseconds); }
    bool RunUntil(const std::function<bool()>& condition) {
        for (int turn = 0; turn < 10'000 && !condition(); ++turn)
            loop.Advance(1);
        return condition();
    }
};

}  // namespace

namespace contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SocketContract, FakeSocketBench);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, TimerContract, FakeTimerBench);
}  // namespace contracts

TEST(FakeLoop, RunsEventsInTheOrderOfTheirTimeAndScriptsAtTheirYield) {
    fakes::FakeLoop loop;
    std::string order;
    loop.PostIn(20, [&] { order += "c"; });
    loop.PostIn(10, [&] {
        order += "a";
        loop.Post([&] { order += "b"; });
    });
    loop.Advance(20);
    EXPECT_EQ(order, "abc");

    loop.Post([&] {
        order += "d";
        loop.Post([&] { order += "f"; });
    });
    loop.PostIn(1, [&] { order += "g"; });
    loop.AtYield(2, [&] { order += "e"; });
    loop.DoEvents();
    EXPECT_EQ(order, "abcd") << "what events post is for the next turn";
    loop.DoEventsOften();
    EXPECT_EQ(order, "abcdef");
    EXPECT_EQ(loop.Yields(), 2);
}

TEST(FakeNetwork, ServesItsPagesAndRefusesUnknownHosts) {
    fakes::FakeLoop loop;
    fakes::FakeNetwork network;
    network.PutPage("site.com/a.html", "body");
    network.PutSilent("site.com/slow");
    const auto fetch = [&](const std::string& host, const std::string& path) {
        fakes::FakeSocket socket(loop);
        network.Attach(socket);
        std::string answer;
        socket.on_connect = [&] { socket.SendData("GET " + path + " HTTP/1.0\r\n\r\n"); };
        socket.on_data = [&] { answer += socket.GetData(); };
        socket.Connect(host, 80);
        loop.RunUntilIdle();
        return std::to_string(static_cast<int>(socket.State())) + " " + answer;
    };
    EXPECT_EQ(fetch("site.com", "/a.html"),
              "8 HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\nbody");
    EXPECT_EQ(fetch("site.com", "/b"), "8 HTTP/1.0 404 Not Found\r\n\r\nNot found.");
    EXPECT_EQ(fetch("site.com", "/slow"), "7 ");
    EXPECT_EQ(fetch("site.co", "/"), "9 ");
    EXPECT_EQ(network.requests(),
              (std::vector<std::string>{"site.com/a.html", "site.com/b", "site.com/slow"}));
}
