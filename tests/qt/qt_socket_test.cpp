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

    QtSocketBench() {
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        server.pauseAccepting();
    }
    ~QtSocketBench() {
        socket.reset();
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
    std::string PeerReads(std::size_t count) {
        std::string bytes(count, '\0');
        EXPECT_EQ(recv(peer, bytes.data(), count, MSG_WAITALL), ssize_t(count));
        return bytes;
    }
    void Settle() { Wait(50); }
};

using QtSocketTest = contracts::SocketContract<QtSocketBench>;

}  // namespace

namespace contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, SocketContract, QtSocketBench);
}  // namespace contracts

TEST_F(QtSocketTest, FindsHostsAndNothingElse) {
    using namespace std::string_literals;
    const auto end_of = [&](const std::string& host) {
        bench_.socket->Connect(host, bench_.server.serverPort());
        bench_.RunUntil([&] { return bench_.socket->State() != SocketState::Connecting; });
        return bench_.socket->State();
    };
    for (const std::string& host :
         {""s, "a..b"s, "localhost "s, "localhost\0.com"s, "\xff"s, "localhost:80"s, "[::1]"s,
          "1.2.3.4.5"s, std::string(70'000, 'a'), "nowhere.invalid"s})
        EXPECT_EQ(end_of(host), SocketState::Error) << host.substr(0, 80);
    EXPECT_FALSE(bench_.SomeoneWaits());
    EXPECT_EQ(end_of("localhost"), SocketState::Connected);
}

TEST_F(QtSocketTest, ALookupEndsWithItsConnection) {
    bench_.socket->Connect("localhost", bench_.server.serverPort());
    bench_.NewSocket();
    bench_.Wait(200);
    EXPECT_FALSE(bench_.SomeoneWaits());
}

// Here the sending hears of the reset, and the reading must not take what follows for a close.
TEST_F(QtSocketTest, AResetThatSendingMeetsIsNoClose) {
    ConnectAndAccept();
    in_data = [&] {
        if (states.size() > 1) return;
        bench_.PeerResets();
        EXPECT_TRUE(bench_.socket->SendData("lost"));
        EXPECT_TRUE(bench_.socket->SendData("lost too"));
    };
    bench_.PeerSends("half");
    EXPECT_TRUE(Becomes(SocketState::Error));
    EXPECT_EQ(EventsInClosing(), 0);
}

TEST_F(QtSocketTest, AFastPeerLetsTheWindowPaint) {
    struct Window : QWidget {
        int unpainted = 0;  // pieces since the last time
        void paintEvent(QPaintEvent*) override { unpainted = 0; }
    } window;
    window.show();
    bench_.Wait(50);
    int pieces = 0;
    int most_unpainted = 0;
    bench_.socket->on_data = [&] {
        ++pieces;
        most_unpainted = std::max(most_unpainted, ++window.unpainted);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));  // so that more always waits
        bench_.socket->GetData();
        window.update();
    };
    ConnectAndAccept();
    std::thread sender([this] {
        bench_.PeerSends(std::string(50'000'000, 'x'));
        bench_.PeerCloses();
    });
    EXPECT_TRUE(Becomes(SocketState::Closing));
    sender.join();
    EXPECT_LT(most_unpainted, pieces / 4);
}
