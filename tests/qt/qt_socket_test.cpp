#include "platform/qt/qt_socket.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QWidget>
#include <chrono>
#include <thread>

#include "tests/contracts/socket_contract.h"
#include "tests/qt/real_bench.h"

namespace {

/// A port of 127.0.0.1, listened on or not.
class LoopbackPort {
  public:
    explicit LoopbackPort(bool listens = true) : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const any = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(bind(socket_, any, size), 0);
        if (listens) {
            EXPECT_EQ(listen(socket_, 16), 0);
        }
        EXPECT_EQ(getsockname(socket_, any, &size), 0);
        number_ = ntohs(address.sin_port);
    }
    ~LoopbackPort() { close(socket_); }
    LoopbackPort(const LoopbackPort&) = delete;

    std::uint16_t Number() const { return number_; }
    bool SomeoneWaits() const {
        pollfd waiting{socket_, POLLIN, 0};
        return poll(&waiting, 1, 0) == 1;
    }
    int Accept() const { return accept(socket_, nullptr, nullptr); }

  private:
    int socket_;
    std::uint16_t number_;
};

/// The real socket against a peer on this machine.
struct QtSocketBench : real::Clock {
    std::unique_ptr<platform::QtSocket> socket = std::make_unique<platform::QtSocket>();
    LoopbackPort port;
    LoopbackPort silent_port{false};
    int peer = -1;
    std::thread sender;

    ~QtSocketBench() {
        socket.reset();
        if (sender.joinable()) sender.join();
        if (peer >= 0) close(peer);
    }

    void NewSocket() { socket = std::make_unique<platform::QtSocket>(); }
    void Connect() {
        socket->Connect("127.0.0.1", port.Number());
        EXPECT_EQ(socket->State(), platform::SocketState::Connecting) << "never at once";
    }
    void ConnectRefused() { socket->Connect("127.0.0.1", silent_port.Number()); }
    void Accept() {
        if (peer >= 0) close(peer);
        ASSERT_TRUE(RunUntil([this] { return port.SomeoneWaits(); }));
        peer = port.Accept();
    }
    void PeerSends(const std::string& bytes) {
        EXPECT_EQ(send(peer, bytes.data(), bytes.size(), MSG_NOSIGNAL), ssize_t(bytes.size()));
    }
    void PeerCloses() { shutdown(peer, SHUT_WR); }
    void PeerResets() {
        const linger at_once{1, 0};
        setsockopt(peer, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
        close(std::exchange(peer, -1));
    }
    void PeerSendsAndCloses(const std::string& bytes) {
        sender = std::thread([this, bytes] {
            PeerSends(bytes);
            PeerCloses();
        });
    }
    std::string PeerReads(std::size_t count) {
        std::string bytes(count, '\0');
        const auto got = recv(peer, bytes.data(), count, MSG_WAITALL);
        bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
        return bytes;
    }
    void Settle() { Wait(50); }

    platform::SocketState EndOf(const std::string& host, std::uint16_t number) {
        socket->Connect(host, number);
        RunUntil([this] { return socket->State() != platform::SocketState::Connecting; });
        return socket->State();
    }
};

class QtSocketTest : public testing::Test {
  protected:
    QtSocketBench bench_;
};

using platform::SocketState;

}  // namespace

namespace contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, SocketContract, QtSocketBench);
}  // namespace contracts

TEST_F(QtSocketTest, FindsHostsByNameAndByNumber) {
    for (const std::string host : {"localhost", "127.0.0.1", "127.1"}) {
        EXPECT_EQ(bench_.EndOf(host, bench_.port.Number()), SocketState::Connected) << host;
    }
}

TEST_F(QtSocketTest, WhatCannotBeAHostIsAnError) {
    using namespace std::string_literals;
    for (const std::string& host : {""s,
                                    " "s,
                                    "."s,
                                    "-"s,
                                    "a b"s,
                                    "a..b"s,
                                    "localhost "s,
                                    "localhost\0"s,
                                    "localhost\0.com"s,
                                    "\xc3\xa4.de"s,
                                    "\xff"s,
                                    "localhost:80"s,
                                    "localhost/x"s,
                                    "[::1]"s,
                                    "1.2.3.4.5"s,
                                    "%"s,
                                    "fe80::1%nowhere"s,
                                    std::string(64, 'a') + ".com",
                                    std::string(255, 'a'),
                                    std::string(70'000, 'a'),
                                    "nowhere.invalid"s}) {
        EXPECT_EQ(bench_.EndOf(host, bench_.port.Number()), SocketState::Error)
            << host.substr(0, 80);
    }
    EXPECT_FALSE(bench_.port.SomeoneWaits());
}

TEST_F(QtSocketTest, ALookupEndsWithItsConnection) {
    bool connected = false;
    bench_.socket->on_connect = [&] { connected = true; };
    bench_.socket->Connect("localhost", bench_.port.Number());
    EXPECT_EQ(bench_.socket->State(), SocketState::Connecting) << "it did not wait for the name";
    bench_.socket->Close();
    bench_.socket->Connect("nowhere.invalid", bench_.port.Number());
    bench_.NewSocket();
    bench_.Wait(200);
    EXPECT_FALSE(connected);
    EXPECT_FALSE(bench_.port.SomeoneWaits());
}

TEST_F(QtSocketTest, ASlowDripIsOneAnswer) {
    std::string received;
    int closing = 0;
    bench_.socket->on_data = [&] {
        received += bench_.socket->GetData();
        closing += bench_.socket->State() == SocketState::Closing;
    };
    bench_.Connect();
    bench_.Accept();
    bench_.sender = std::thread([this] {
        for (const char c : std::string("drip, drip")) {
            bench_.PeerSends(std::string(1, c));
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        std::this_thread::sleep_for(std::chrono::seconds(5));  // many servers close this late
        bench_.PeerCloses();
    });
    EXPECT_TRUE(bench_.RunUntil([&] { return closing > 0; }));
    EXPECT_EQ(received, "drip, drip");
    EXPECT_EQ(closing, 1);
}

TEST_F(QtSocketTest, SendsWhatNoBufferHolds) {
    bench_.Connect();
    bench_.Accept();
    ASSERT_TRUE(bench_.RunUntil([&] { return bench_.socket->State() == SocketState::Connected; }));
    const std::string bytes(20'000'000, 'q');
    EXPECT_TRUE(bench_.socket->SendData(bytes));
    std::string read;
    bench_.sender = std::thread([&] {
        read = bench_.PeerReads(bytes.size());
        bench_.PeerCloses();
    });
    EXPECT_TRUE(bench_.RunUntil([&] { return bench_.socket->State() == SocketState::Closing; }));
    bench_.sender.join();
    EXPECT_TRUE(read == bytes);
}

// The host tells of a reset once only: here the sending hears of it, and the reading must not take
// what follows for a close.
TEST_F(QtSocketTest, AResetThatSendingMeetsIsNoClose) {
    bench_.Connect();
    bench_.Accept();
    ASSERT_TRUE(bench_.RunUntil([&] { return bench_.socket->State() == SocketState::Connected; }));
    bool once = false;
    bench_.socket->on_data = [&] {
        EXPECT_EQ(bench_.socket->State(), SocketState::Connected);
        bench_.socket->GetData();
        if (std::exchange(once, true)) return;
        bench_.PeerResets();
        EXPECT_TRUE(bench_.socket->SendData("lost"));
        EXPECT_TRUE(bench_.socket->SendData("lost too"));
    };
    bench_.PeerSends("half");
    EXPECT_TRUE(bench_.RunUntil([&] { return bench_.socket->State() == SocketState::Error; }));
}

TEST_F(QtSocketTest, AFastPeerLetsTheWindowPaint) {
    int unpainted = 0;  // pieces since the window was last painted
    int most_unpainted = 0;
    struct Window : QWidget {
        int* unpainted;
        void paintEvent(QPaintEvent*) override { *unpainted = 0; }
    } window;
    window.unpainted = &unpainted;
    window.show();
    bench_.Wait(50);
    int pieces = 0;
    bench_.socket->on_data = [&] {
        ++pieces;
        most_unpainted = std::max(most_unpainted, ++unpainted);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));  // so that more always waits
        bench_.socket->GetData();
        window.update();
    };
    bench_.Connect();
    bench_.Accept();
    bench_.PeerSendsAndCloses(std::string(50'000'000, 'x'));
    EXPECT_TRUE(bench_.RunUntil([&] { return bench_.socket->State() == SocketState::Closing; }));
    EXPECT_GE(pieces, 50'000'000 / (256 * 1024));
    EXPECT_LT(most_unpainted, pieces / 4);
}
