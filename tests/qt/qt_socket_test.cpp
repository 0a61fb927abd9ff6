#include "platform/qt/qt_socket.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QTcpServer>
#include <QWidget>
#include <chrono>
#include <thread>
#include <utility>

#include "tests/contracts/socket_contract.h"
#include "tests/qt/real_bench.h"

namespace {

using platform::SocketState;

/// The real socket against a peer on this machine.
struct QtSocketBench : real::Clock {
    std::unique_ptr<platform::QtSocket> socket = std::make_unique<platform::QtSocket>();
    QTcpServer server;  // holds the port; its peers are taken by hand
    int peer = -1;
    std::thread sender;

    QtSocketBench() {
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        server.pauseAccepting();
    }
    ~QtSocketBench() {
        socket.reset();
        if (sender.joinable()) sender.join();
        if (peer >= 0) close(peer);
    }

    void NewSocket() { socket = std::make_unique<platform::QtSocket>(); }
    void Connect() {
        socket->Connect("127.0.0.1", server.serverPort());
        EXPECT_EQ(socket->State(), SocketState::Connecting) << "never at once";
    }
    void ConnectRefused() { socket->Connect("127.0.0.1", 1); }
    bool SomeoneWaits() const {
        pollfd waiting{static_cast<int>(server.socketDescriptor()), POLLIN, 0};
        return poll(&waiting, 1, 0) == 1;
    }
    void Accept() {
        if (peer >= 0) close(peer);
        ASSERT_TRUE(RunUntil([this] { return SomeoneWaits(); }));
        peer = accept(static_cast<int>(server.socketDescriptor()), nullptr, nullptr);
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
};

class QtSocketTest : public testing::Test, protected QtSocketBench {
  protected:
    bool Becomes(SocketState state) {
        return RunUntil([&] { return socket->State() == state; });
    }
    void ConnectAndAccept() {
        Connect();
        Accept();
        ASSERT_TRUE(Becomes(SocketState::Connected));
    }
};

}  // namespace

namespace contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, SocketContract, QtSocketBench);
}  // namespace contracts

TEST_F(QtSocketTest, FindsHostsAndNothingElse) {
    using namespace std::string_literals;
    const auto end_of = [&](const std::string& host) {
        socket->Connect(host, server.serverPort());
        RunUntil([&] { return socket->State() != SocketState::Connecting; });
        return socket->State();
    };
    for (const std::string& host :
         {""s, " "s, "."s, "a b"s, "a..b"s, "localhost "s, "localhost\0"s, "%"s, "\xff"s,
          "localhost\0.com"s, "\xc3\xa4.de"s, "localhost:80"s, "[::1]"s, "1.2.3.4.5"s,
          "fe80::1%nowhere"s, std::string(64, 'a') + ".com", std::string(70'000, 'a'),
          "nowhere.invalid"s}) {
        EXPECT_EQ(end_of(host), SocketState::Error) << host.substr(0, 80);
    }
    EXPECT_FALSE(SomeoneWaits());
    for (const std::string host : {"localhost", "127.0.0.1", "127.1"}) {
        EXPECT_EQ(end_of(host), SocketState::Connected) << host;
    }
}

TEST_F(QtSocketTest, ALookupEndsWithItsConnection) {
    socket->Connect("localhost", server.serverPort());
    EXPECT_EQ(socket->State(), SocketState::Connecting) << "it did not wait for the name";
    socket->Close();
    socket->Connect("nowhere.invalid", server.serverPort());
    NewSocket();
    Wait(200);
    EXPECT_FALSE(SomeoneWaits());
}

TEST_F(QtSocketTest, SendsWhatNoBufferHolds) {
    ConnectAndAccept();
    const std::string bytes(20'000'000, 'q');
    EXPECT_TRUE(socket->SendData(bytes));
    std::string read;
    sender = std::thread([&] {
        read = PeerReads(bytes.size());
        PeerCloses();
    });
    EXPECT_TRUE(Becomes(SocketState::Closing));
    sender.join();
    EXPECT_TRUE(read == bytes);
}

// The host tells of a reset once only: here the sending hears of it, and the reading must not take
// what follows for a close.
TEST_F(QtSocketTest, AResetThatSendingMeetsIsNoClose) {
    ConnectAndAccept();
    bool once = false;
    socket->on_data = [&] {
        EXPECT_EQ(socket->State(), SocketState::Connected);
        socket->GetData();
        if (std::exchange(once, true)) return;
        PeerResets();
        EXPECT_TRUE(socket->SendData("lost"));
        EXPECT_TRUE(socket->SendData("lost too"));
    };
    PeerSends("half");
    EXPECT_TRUE(Becomes(SocketState::Error));
}

TEST_F(QtSocketTest, AFastPeerLetsTheWindowPaint) {
    struct Window : QWidget {
        int unpainted = 0;  // pieces since the last time
        void paintEvent(QPaintEvent*) override { unpainted = 0; }
    } window;
    window.show();
    Wait(50);
    int pieces = 0;
    int most_unpainted = 0;
    socket->on_data = [&] {
        ++pieces;
        most_unpainted = std::max(most_unpainted, ++window.unpainted);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));  // so that more always waits
        socket->GetData();
        window.update();
    };
    ConnectAndAccept();
    PeerSendsAndCloses(std::string(50'000'000, 'x'));
    EXPECT_TRUE(Becomes(SocketState::Closing));
    EXPECT_LT(most_unpainted, pieces / 4);
}
