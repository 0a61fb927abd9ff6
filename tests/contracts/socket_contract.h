#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/socket.h"

/// The contract of `platform::Socket`, run on the real socket and on its in-memory twin. A bench
/// provides a socket, its loop and the peer's side:
///   socket, loop         the socket under test (a unique_ptr) and the loop that raises its events
///   Connect(), Accept()  starts a connection to the peer; the peer accepts it
///   ConnectRefused()     starts a connection to a port on which nobody listens
///   PeerSends(), PeerCloses(), PeerResets(), PeerReads(n)
///   RunUntil(condition)  runs events until it holds; false if it never does
///   Settle()             lets everything arrive that is on the way
///   Block(ms)            lets time pass without events, like a slow handler
///   NewTimer()           a timer on the same loop, as a unique_ptr
namespace contracts {

using platform::SocketFailure;
using platform::SocketState;

template <typename Bench>
class SocketContract : public testing::Test {
  protected:
    /// Records every event of the socket and reads what has arrived.
    SocketContract() {
        bench_.socket->on_connect = [this] {
            ++connects;
            EXPECT_EQ(bench_.socket->State(), SocketState::Connected);
        };
        bench_.socket->on_data = [this] {
            states.push_back(bench_.socket->State());
            received += bench_.socket->GetData();
            if (in_data) in_data();
        };
    }

    void ConnectAndAccept() {
        bench_.Connect();
        bench_.Accept();
        ASSERT_TRUE(Becomes(SocketState::Connected));
    }
    bool Becomes(SocketState state) {
        return bench_.RunUntil([&] { return bench_.socket->State() == state; });
    }
    /// The same. Then waits for any further events.
    bool EndsIn(SocketState state) {
        const bool reached = Becomes(state);
        bench_.Settle();
        return reached;
    }
    bool Receives(const std::string& all) {
        return bench_.RunUntil([&] { return received == all; });
    }
    int Events() const { return connects + static_cast<int>(states.size()); }
    auto EventsInClosing() const {
        return std::count(states.begin(), states.end(), SocketState::Closing);
    }

    Bench bench_;
    std::function<void()> in_data;  // called at the end of the handler
    int connects = 0;
    std::vector<SocketState> states;  // at each on_data
    std::string received;
};

TYPED_TEST_SUITE_P(SocketContract);

TYPED_TEST_P(SocketContract, EndsAResponseWithOneEventWhileClosing) {
    auto& bench = this->bench_;
    for (const bool close_at_once : {true, false}) {
        this->states.clear();
        this->received.clear();
        EXPECT_FALSE(bench.socket->SendData("too early"));
        this->ConnectAndAccept();
        EXPECT_TRUE(bench.socket->SendData("question"));
        EXPECT_EQ(bench.PeerReads(8), "question");
        bench.PeerSends("!");
        EXPECT_TRUE(close_at_once || this->Receives("!"));
        bench.PeerCloses();
        EXPECT_TRUE(this->EndsIn(SocketState::Closing));
        EXPECT_EQ(this->received, "!");
        EXPECT_EQ(this->EventsInClosing(), 1);
        EXPECT_EQ(this->states.back(), SocketState::Closing);
        bench.socket->Close();
    }
    EXPECT_EQ(this->connects, 2);
}

TYPED_TEST_P(SocketContract, RaisesNoDataEventIfThePeerSendsNothing) {
    auto& bench = this->bench_;
    bench.ConnectRefused();
    EXPECT_EQ(bench.socket->Failure(), SocketFailure::None);
    EXPECT_TRUE(this->EndsIn(SocketState::Error));
    EXPECT_EQ(bench.socket->Failure(), SocketFailure::Refused);
    EXPECT_EQ(this->connects, 0);

    this->ConnectAndAccept();
    EXPECT_EQ(bench.socket->Failure(), SocketFailure::None) << "this connection did not fail";
    bench.PeerCloses();
    EXPECT_TRUE(this->EndsIn(SocketState::Closing));
    EXPECT_EQ(bench.socket->Failure(), SocketFailure::None);
    EXPECT_TRUE(this->states.empty());
    EXPECT_TRUE(bench.socket->SendData("a half-closed connection still accepts data"));
}

TYPED_TEST_P(SocketContract, DoesNotTakeAResetForAClose) {
    this->ConnectAndAccept();
    this->bench_.PeerSends("half an ans");
    EXPECT_TRUE(this->Receives("half an ans"));
    this->bench_.PeerResets();
    EXPECT_TRUE(this->EndsIn(SocketState::Error));
    EXPECT_EQ(this->bench_.socket->Failure(), SocketFailure::Reset);
    EXPECT_EQ(this->EventsInClosing(), 0);
    EXPECT_FALSE(this->bench_.socket->SendData("nobody listens"));
    this->bench_.socket->Close();
    EXPECT_EQ(this->bench_.socket->Failure(), SocketFailure::None);
}

TYPED_TEST_P(SocketContract, RaisesDataThatArrivesDuringAHandlerAfterIt) {
    auto& bench = this->bench_;
    this->in_data = [&] {
        if (this->states.size() > 1) return;
        bench.PeerSends("second");
        bench.PeerCloses();
        bench.Settle();
        bench.loop.DoEvents();
        EXPECT_EQ(this->states.size(), 1U) << "raised while the handler was running";
        EXPECT_EQ(bench.socket->State(), SocketState::Connected);
        EXPECT_EQ(bench.socket->GetData(), "");
    };
    this->ConnectAndAccept();
    bench.Settle();  // so that it is already waiting when bytes arrive
    bench.PeerSends("first ");
    EXPECT_TRUE(this->EndsIn(SocketState::Closing));
    EXPECT_EQ(this->received, "first second");
    EXPECT_EQ(this->EventsInClosing(), 1);
}

TYPED_TEST_P(SocketContract, RaisesNothingAfterClose) {
    auto& bench = this->bench_;
    const auto close = [&] {
        bench.socket->Close();
        EXPECT_EQ(bench.socket->State(), SocketState::Closed);
        EXPECT_EQ(bench.socket->GetData(), "");
    };
    bench.Connect();  // while connecting
    close();
    bench.Settle();
    EXPECT_EQ(this->connects, 0);

    this->ConnectAndAccept();  // with bytes on the way
    bench.PeerSends("late");
    close();
    bench.Settle();
    EXPECT_TRUE(this->states.empty());

    this->in_data = close;  // in its handler
    this->ConnectAndAccept();
    bench.PeerSends("one");
    EXPECT_TRUE(this->EndsIn(SocketState::Closed));
    bench.PeerSends("late");
    bench.Settle();
    EXPECT_EQ(this->received, "one");
}

TYPED_TEST_P(SocketContract, CanReconnectInsideItsHandler) {
    auto& bench = this->bench_;
    this->in_data = [&] {
        if (this->states.size() > 1) return;
        bench.PeerSends("never seen");
        bench.socket->Close();
        this->ConnectAndAccept();
        bench.PeerSends("new");
        EXPECT_TRUE(this->Receives("old new")) << "with the old handler still on the stack";
    };
    this->ConnectAndAccept();
    bench.PeerSends("old ");
    EXPECT_TRUE(this->Receives("old new"));
    bench.PeerCloses();
    EXPECT_TRUE(this->EndsIn(SocketState::Closing));
    EXPECT_EQ(this->received, "old new");
    EXPECT_EQ(this->EventsInClosing(), 1);
}

TYPED_TEST_P(SocketContract, MayBeDestroyedInItsHandler) {
    auto& bench = this->bench_;
    this->in_data = [&] { bench.socket.reset(); };
    this->ConnectAndAccept();
    bench.PeerSends("bytes");
    EXPECT_TRUE(bench.RunUntil([&] { return !bench.socket; }));
}

TYPED_TEST_P(SocketContract, RaisesPendingEventsBeforeADueTimer) {
    auto& bench = this->bench_;
    const std::function<void()> arrivals[] = {
        [&] { bench.PeerSends("more"); },
        [&] { bench.PeerCloses(); },
        [&] {
            bench.Connect();
            bench.Accept();
        },
    };
    for (const auto& arrive : arrivals) {
        const auto timer = bench.NewTimer();
        timer->SetInterval(20);
        int at_timer = 0;  // the number of events before the tick
        timer->on_timer = [&] { at_timer = this->Events(); };
        int at_block = 0;
        this->in_data = [&] {
            if (at_block > 0) return;
            at_block = this->Events();
            timer->SetEnabled(true);
            arrive();
            bench.Block(100);
        };
        this->ConnectAndAccept();
        bench.PeerSends("x");
        EXPECT_TRUE(bench.RunUntil([&] { return at_timer > 0; }));
        EXPECT_GT(at_timer, at_block);
    }
}

TYPED_TEST_P(SocketContract, LetsAPendingEventStopADueTimer) {
    auto& bench = this->bench_;
    const auto timer = bench.NewTimer();
    timer->SetInterval(20);
    timer->on_timer = [] { ADD_FAILURE() << "the peer was not silent"; };
    this->in_data = [&] {
        const bool first = this->states.size() == 1;
        timer->SetEnabled(first);
        if (!first) return;
        bench.PeerSends("more");
        bench.Block(100);
    };
    this->ConnectAndAccept();
    bench.PeerSends("some ");
    EXPECT_TRUE(this->Receives("some more"));
    bench.Settle();
}

REGISTER_TYPED_TEST_SUITE_P(SocketContract, EndsAResponseWithOneEventWhileClosing,
                            RaisesNoDataEventIfThePeerSendsNothing, DoesNotTakeAResetForAClose,
                            RaisesDataThatArrivesDuringAHandlerAfterIt, RaisesNothingAfterClose,
                            CanReconnectInsideItsHandler, MayBeDestroyedInItsHandler,
                            RaisesPendingEventsBeforeADueTimer, LetsAPendingEventStopADueTimer);

}  // namespace contracts
