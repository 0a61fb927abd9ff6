#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/socket.h"

/// What every socket keeps to, run on the real one and on its twin. A bench brings a socket, its
/// loop and the peer's side:
///   socket, loop         the socket under test (a unique_ptr) and the loop that raises its events
///   Connect(), Accept()  starts a connection to the peer; the peer takes it
///   ConnectRefused()     starts a connection to where nobody listens
///   PeerSends(), PeerCloses(), PeerResets(), PeerReads(n)
///   PeerSendsAndCloses() the same for bytes that no buffer holds; does not wait
///   RunUntil(condition)  lets events run until it holds; false when it never does
///   Wait(ms), Settle()   lets time pass; lets everything arrive that is on its way
namespace contracts {

using platform::SocketState;

template <typename Bench>
class SocketContract : public testing::Test {
  protected:
    /// Notes every event of the socket, and reads what came.
    SocketContract() {
        bench_.socket->on_connect = [this] {
            ++connects;
            EXPECT_EQ(bench_.socket->State(), SocketState::Connected);
        };
        bench_.socket->on_data = [this] {
            states.push_back(bench_.socket->State());
            const std::string data = bench_.socket->GetData();
            most_in_one_event = std::max(most_in_one_event, data.size());
            received += data;
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
    /// The same, and lets whatever else there is come after it.
    bool EndsIn(SocketState state) {
        const bool reached = Becomes(state);
        bench_.Settle();
        return reached;
    }
    bool Receives(const std::string& all) {
        return bench_.RunUntil([&] { return received == all; });
    }
    auto EventsInClosing() const {
        return std::count(states.begin(), states.end(), SocketState::Closing);
    }

    Bench bench_;
    std::function<void()> in_data;  // what else the handler does
    int connects = 0;
    std::vector<SocketState> states;  // at each on_data
    std::string received;
    std::size_t most_in_one_event = 0;
};

TYPED_TEST_SUITE_P(SocketContract);

TYPED_TEST_P(SocketContract, AnAnswerEndsWithExactlyOneEventInClosing) {
    auto& bench = this->bench_;
    for (const int close_after : {-1, 0, 100}) {  // -1: bytes and close at once
        SCOPED_TRACE(close_after);
        this->connects = 0;
        this->states.clear();
        this->received.clear();
        EXPECT_FALSE(bench.socket->SendData("too early"));
        this->ConnectAndAccept();
        EXPECT_TRUE(bench.socket->SendData("question"));
        EXPECT_EQ(bench.PeerReads(8), "question");
        bench.PeerSends("!");
        if (close_after >= 0) {
            EXPECT_TRUE(this->Receives("!"));
            bench.Wait(close_after);
        }
        bench.PeerCloses();
        EXPECT_TRUE(this->EndsIn(SocketState::Closing));
        EXPECT_EQ(this->received, "!");
        EXPECT_EQ(this->connects, 1);
        EXPECT_EQ(this->EventsInClosing(), 1);
        EXPECT_EQ(this->states.back(), SocketState::Closing);
        bench.socket->Close();
        EXPECT_FALSE(bench.socket->SendData("too late"));
    }
}

TYPED_TEST_P(SocketContract, NothingIsRaisedForAPeerThatSendsNothing) {
    auto& bench = this->bench_;
    bench.ConnectRefused();
    EXPECT_TRUE(this->EndsIn(SocketState::Error));
    EXPECT_EQ(this->connects, 0);

    this->ConnectAndAccept();
    bench.PeerCloses();
    EXPECT_TRUE(this->EndsIn(SocketState::Closing));
    EXPECT_TRUE(this->states.empty());
    EXPECT_TRUE(bench.socket->SendData("a half-closed connection still takes this"));
}

TYPED_TEST_P(SocketContract, AResetIsNoClose) {
    this->ConnectAndAccept();
    this->bench_.PeerSends("half an ans");
    EXPECT_TRUE(this->Receives("half an ans"));
    this->bench_.PeerResets();
    EXPECT_TRUE(this->EndsIn(SocketState::Error));
    EXPECT_EQ(this->EventsInClosing(), 0);
    EXPECT_FALSE(this->bench_.socket->SendData("nobody listens"));
}

TYPED_TEST_P(SocketContract, WhatComesDuringAHandlerIsNoticedAfterIt) {
    auto& bench = this->bench_;
    this->in_data = [&] {
        if (this->states.size() > 1) return;
        bench.PeerSends("second");
        bench.PeerCloses();
        bench.Settle();
        bench.loop.DoEvents();
        EXPECT_EQ(this->states.size(), 1U) << "raised inside itself";
        EXPECT_EQ(bench.socket->State(), SocketState::Connected);
        EXPECT_EQ(bench.socket->GetData(), "");
    };
    this->ConnectAndAccept();
    bench.Settle();  // so that it waits for bytes when they come
    bench.PeerSends("first ");
    EXPECT_TRUE(this->EndsIn(SocketState::Closing));
    EXPECT_EQ(this->received, "first second");
    EXPECT_EQ(this->EventsInClosing(), 1);
}

TYPED_TEST_P(SocketContract, BytesLeftUnreadRaiseAgain) {
    auto& bench = this->bench_;
    const std::string more_than_is_held(300'000, 'x');
    int calls = 0;
    bench.socket->on_data = [&] {
        if (++calls > 50) this->received += bench.socket->GetData();
    };
    this->ConnectAndAccept();
    bench.PeerSends(more_than_is_held);
    EXPECT_TRUE(this->Receives(more_than_is_held));
    const int needed = calls;
    bench.Settle();
    EXPECT_EQ(calls, needed);
}

TYPED_TEST_P(SocketContract, NothingComesAfterClose) {
    auto& bench = this->bench_;
    int closes = 0;
    const auto close = [&] {
        ++closes;
        bench.socket->Close();
        EXPECT_EQ(bench.socket->State(), SocketState::Closed);
        EXPECT_EQ(bench.socket->GetData(), "");
    };
    bench.Connect();  // while connecting
    close();
    bench.Settle();
    EXPECT_EQ(this->connects, 0);

    this->ConnectAndAccept();  // with bytes on their way
    bench.PeerSends("late");
    close();
    bench.Settle();
    EXPECT_TRUE(this->states.empty());

    this->in_data = close;  // in its handlers
    this->ConnectAndAccept();
    bench.PeerSends("one");
    EXPECT_TRUE(this->EndsIn(SocketState::Closed));
    bench.PeerSends("late");
    bench.Settle();
    EXPECT_EQ(this->received, "one");
    bench.socket->on_connect = close;
    bench.Connect();
    bench.Accept();
    bench.PeerSends("late");
    EXPECT_TRUE(this->EndsIn(SocketState::Closed));
    EXPECT_EQ(this->received, "one");
    EXPECT_EQ(closes, 4);
}

TYPED_TEST_P(SocketContract, ANewConnectionLivesInsideTheOldHandler) {
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

TYPED_TEST_P(SocketContract, ItMayBeDestroyedInItsOwnHandlers) {
    auto& bench = this->bench_;
    for (const bool while_connecting : {true, false}) {
        SCOPED_TRACE(while_connecting);
        bench.NewSocket();
        (while_connecting ? bench.socket->on_connect : bench.socket->on_data) = [&] {
            bench.socket.reset();
        };
        bench.Connect();
        bench.Accept();
        bench.PeerSends("bytes");
        EXPECT_TRUE(bench.RunUntil([&] { return !bench.socket; }));
        bench.Settle();
    }
}

TYPED_TEST_P(SocketContract, ABigAnswerComesWholeInBoundedPieces) {
    std::string answer(20'000'000, '\0');
    for (std::size_t i = 0; i < answer.size(); ++i)
        answer[i] = static_cast<char>(i * i >> 8);
    this->ConnectAndAccept();
    this->bench_.PeerSendsAndCloses(answer);
    EXPECT_TRUE(this->EndsIn(SocketState::Closing));
    EXPECT_TRUE(this->received == answer);
    EXPECT_LE(this->most_in_one_event, 256U * 1024U);
    EXPECT_EQ(this->EventsInClosing(), 1);
}

REGISTER_TYPED_TEST_SUITE_P(SocketContract, AnAnswerEndsWithExactlyOneEventInClosing,
                            NothingIsRaisedForAPeerThatSendsNothing, AResetIsNoClose,
                            WhatComesDuringAHandlerIsNoticedAfterIt, BytesLeftUnreadRaiseAgain,
                            NothingComesAfterClose, ANewConnectionLivesInsideTheOldHandler,
                            ItMayBeDestroyedInItsOwnHandlers, ABigAnswerComesWholeInBoundedPieces);

}  // namespace contracts
