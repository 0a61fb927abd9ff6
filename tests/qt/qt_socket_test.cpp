#include "platform/net/qt_socket.h"

#include <QTcpServer>
#include <QWidget>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <thread>
#include <utility>

#include "platform/net/host_resolver.h"
#include "platform/net/native_socket.h"
#include "tests/contracts/socket_contract.h"
#include "tests/qt/name_server.h"
#include "tests/qt/real_bench.h"

namespace {

/// Allocations of this many bytes or more are refused, as by a system without free memory.
std::size_t g_refused_from = SIZE_MAX;

}  // namespace

// Were these inlined, GCC 14 would warn that memory of one kind is freed as that of another.
[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const memory = size < g_refused_from ? std::malloc(size) : nullptr;
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size);  // the sanitizer's own version would not match the delete below
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace {

using platform::SocketFailure;
using platform::SocketState;
namespace native = platform::native;

/// Accepts a connection. Its calls block even if those of the listening socket do not.
native::Handle TakePeer(native::Handle listening) {
    const native::Handle peer = accept(listening, nullptr, nullptr);
#ifdef _WIN32
    u_long off = 0;
    ioctlsocket(peer, FIONBIO, &off);
#endif
    return peer;
}

/// The real socket against a peer on this machine.
struct QtSocketBench : real::Clock {
    std::unique_ptr<platform::QtSocket> socket = std::make_unique<platform::QtSocket>();
    QTcpServer server;  // holds the port; the test itself accepts the peers
    native::Handle peer = native::kNoHandle;

    QtSocketBench() {
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        server.pauseAccepting();
    }
    ~QtSocketBench() {
        socket.reset();
        DropPeer();
    }

    void NewSocket() { socket = std::make_unique<platform::QtSocket>(); }
    void Connect() {
        socket->Connect("127.0.0.1", server.serverPort());
        EXPECT_EQ(socket->State(), SocketState::Connecting) << "never immediately";
    }
    void ConnectRefused() { socket->Connect("127.0.0.1", 1); }
    bool SomeoneWaits() const {
        native::PollEntry waiting{Listening(), POLLIN, 0};
        return native::PollAtOnce(&waiting, 1) == 1;
    }
    native::Handle Listening() const {
        return static_cast<native::Handle>(server.socketDescriptor());
    }
    void DropPeer() {
        if (peer != native::kNoHandle) native::CloseHandle(peer);
        peer = native::kNoHandle;
    }
    /// Accepts the newest; others may be left from cancelled connections.
    void Accept() {
        ASSERT_TRUE(RunUntil([this] { return SomeoneWaits(); }));
        while (SomeoneWaits()) {
            DropPeer();
            peer = TakePeer(Listening());
        }
    }
    void PeerSends(const std::string& bytes) {
        std::string_view rest = bytes;
        while (!rest.empty()) {
            const auto taken = native::Send(peer, rest.data(), rest.size());
            ASSERT_GT(taken, 0);
            rest.remove_prefix(static_cast<std::size_t>(taken));
        }
    }
    void PeerCloses() {
        constexpr int kSending = 1;
        shutdown(peer, kSending);
    }
    void PeerResets() {
        const linger at_once{1, 0};
        setsockopt(peer, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&at_once),
                   sizeof at_once);
        DropPeer();
    }
    std::string PeerReads(std::size_t count) {
        std::string bytes(count, '\0');
        EXPECT_EQ(recv(peer, bytes.data(), static_cast<int>(count), MSG_WAITALL), ssize_t(count));
        return bytes;
    }
    void Settle() { Wait(50); }
};

using QtSocketTest = contracts::SocketContract<QtSocketBench>;

}  // namespace

namespace contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, SocketContract, QtSocketBench);
}  // namespace contracts

TEST_F(QtSocketTest, FindsItsHostByName) {
    NameServer names;
    platform::HostResolver resolver(names.Address());
    bench_.socket = std::make_unique<platform::QtSocket>(resolver);
    const auto connect = [&](const std::string& host) {
        bench_.socket->Connect(host, bench_.server.serverPort());
    };
    connect("no.site.test");
    EXPECT_TRUE(Becomes(SocketState::Error));
    EXPECT_EQ(bench_.socket->Failure(), SocketFailure::NameUnknown);
    connect("www.site.test");
    EXPECT_EQ(bench_.socket->State(), SocketState::Connecting);
    EXPECT_TRUE(Becomes(SocketState::Connected));
    bench_.Accept();

    connect("silent.site.test");
    connect("www.second.test");
    bench_.socket->Close();
    bench_.RunUntil([&] { return names.asked.size() == 4; });
    bench_.Settle();
    EXPECT_EQ(bench_.socket->State(), SocketState::Closed);
    EXPECT_FALSE(bench_.SomeoneWaits()) << "closing the socket cancels the look-up";
    bench_.socket.reset();
}

#ifndef _WIN32  // A full queue refuses at once there.
// Nobody accepts the connections to the first address: one waits, and further ones get no answer.
TEST_F(QtSocketTest, TriesTheNextAddressWhenOneStaysSilent) {
    const auto port = bench_.server.serverPort();
    platform::native::Address silent = *native::NumericAddress("127.0.0.2");
    silent.SetPort(port);
    const native::Handle listening = socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listening, silent.Get(), sizeof(sockaddr_in)), 0);
    ASSERT_EQ(listen(listening, 0), 0);
    platform::QtSocket waiting;
    waiting.Connect("127.0.0.2", port);
    EXPECT_TRUE(bench_.RunUntil([&] { return waiting.State() == SocketState::Connected; }));

    NameServer names;
    platform::HostResolver resolver(names.Address());
    bench_.socket = std::make_unique<platform::QtSocket>(resolver);
    bench_.socket->Connect("two.site.test", port);
    bench_.Accept();
    EXPECT_TRUE(bench_.RunUntil([&] { return bench_.socket->State() == SocketState::Connected; }));
    bench_.socket.reset();
    native::CloseHandle(listening);
}
#endif

// Handles that are not given back would end a long crawl.
TEST_F(QtSocketTest, GivesItsHandleBackWhenItCloses) {
    ConnectAndAccept();
    bench_.socket->Close();
    native::PollEntry end{bench_.peer, POLLIN, 0};
    EXPECT_TRUE(bench_.RunUntil([&] { return native::PollAtOnce(&end, 1) == 1; }))
        << "the peer is told of the end";
}

// Here sending detects the reset, and reading must not take what follows for a close.
TEST_F(QtSocketTest, DoesNotTakeAResetDetectedBySendingForAClose) {
    ConnectAndAccept();
    in_data = [&] {
        if (states.size() > 1) return;
        bench_.PeerResets();
        EXPECT_TRUE(bench_.socket->SendData("lost"));
        EXPECT_TRUE(bench_.socket->SendData("lost too"));
    };
    bench_.PeerSends("half");
    EXPECT_TRUE(Becomes(SocketState::Error));
    EXPECT_EQ(bench_.socket->Failure(), SocketFailure::Reset);
    EXPECT_EQ(EventsInClosing(), 0);
}

TEST_F(QtSocketTest, WithoutANameServerANameDoesNotCountAsUnknown) {
    platform::HostResolver resolver("127.0.0.1:1");
    bench_.socket = std::make_unique<platform::QtSocket>(resolver);
    bench_.socket->Connect("www.site.test", 80);
    EXPECT_TRUE(Becomes(SocketState::Error));
    EXPECT_EQ(bench_.socket->Failure(), SocketFailure::NotLookedUp);
}

TEST_F(QtSocketTest, AFastPeerDelaysNeitherPaintingNorTimers) {
    struct Window : QWidget {
        int unpainted = 0;  // pieces since the last painting
        void paintEvent(QPaintEvent*) override { unpainted = 0; }
    } window;
    window.show();
    bench_.Wait(50);
    const auto timer = bench_.NewTimer();
    int ticks = 0;
    timer->on_timer = [&] { ++ticks; };
    timer->SetInterval(10);
    timer->SetEnabled(true);
    int pieces = 0;
    int most_unpainted = 0;
    bench_.socket->on_data = [&] {
        ++pieces;
        most_unpainted = std::max(most_unpainted, ++window.unpainted);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));  // so that data keeps waiting
        bench_.socket->GetData();
        window.update();
    };
    ConnectAndAccept();
    std::thread sender([this] {
        for (int i = 0; i < 10; ++i)
            bench_.PeerSends(std::string(5'000'000, 'x'));
        bench_.PeerCloses();
    });
    EXPECT_TRUE(Becomes(SocketState::Closing));
    sender.join();
    EXPECT_LT(most_unpainted, pieces / 4);
    EXPECT_GE(ticks, 5);
}

// The second socket's handler blocks in the very iteration after which the due timer would fire.
TEST_F(QtSocketTest, EverySocketComesBeforeADueTimerHoweverLongTheOthersTake) {
    QtSocketBench other;
    ConnectAndAccept();
    other.Connect();
    other.Accept();
    EXPECT_TRUE(bench_.RunUntil([&] { return other.socket->State() == SocketState::Connected; }));

    std::string order;
    const auto timer = bench_.NewTimer();
    timer->SetInterval(20);
    timer->on_timer = [&] {
        order += " timer";
        timer->SetEnabled(false);
    };
    in_data = [&] {
        order += " " + received;
        if (std::exchange(received, "") != "first") return;
        timer->SetEnabled(true);
        other.PeerSends("x");
        bench_.Block(100);
    };
    other.socket->on_data = [&] {
        order += " " + other.socket->GetData();
        bench_.PeerSends("late");
        bench_.Block(100);
    };
    bench_.PeerSends("first");
    EXPECT_TRUE(bench_.RunUntil([&] { return order.ends_with("timer"); }));
    EXPECT_EQ(order, " first x late timer");
}

TEST_F(QtSocketTest, AConnectionFailsWithoutMemoryForItsBytes) {
    const std::string answer(20'000, 'x');
    ConnectAndAccept();
    g_refused_from = 10'000;
    bench_.PeerSends(answer);
    const bool failed = Becomes(SocketState::Error);
    g_refused_from = SIZE_MAX;
    EXPECT_TRUE(failed);
    EXPECT_EQ(bench_.socket->Failure(), SocketFailure::OutOfMemory);
    bench_.Settle();
    EXPECT_EQ(Events(), 1) << "only the connect event";
}
