#include <algorithm>
#include <cstddef>
#include <deque>
#include <exception>
#include <iterator>
#include <limits>
#include <utility>

#include "engine/endings.h"
#include "engine/response_memory.h"
#include "engine/scheduler.h"
#include "engine/site_start.h"
#include "tests/fakes/fake_loop.h"
#include "tests/fakes/fake_main_window.h"
#include "tests/fakes/fake_socket.h"
#include "tests/fakes/fake_system.h"
#include "tests/schedule_checks.h"
#include "tests/schedule_site.h"
#include "tests/schedules.h"

namespace schedules {

namespace {

constexpr std::size_t kLargeResponse = 5000;
constexpr std::size_t kEverything = 1'000'000;
constexpr const char* kConnections[] = {"1", "2", "3", "4", "8", "24", "0"};

/// The engine with a user, servers and time that act as a list of events says.
class World {
  public:
    /// `seed` determines the sites, the timeout and the memory for responses.
    explicit World(unsigned seed) : sites_(seed, kLargeResponse), timeout_(100 + 150 * (seed % 7)) {
        // In every fourth world, a large response and another one do not fit in memory.
        bas_Connections::MostResponseBytes = seed % 4 == 0 ? kLargeResponse : 1'000'000;
        system_.files.Have("C:\\program\\temp\\filetypes.txt", ".htm\r\n.html\r\n.gif\r\n");
        system_.files.refused = {"c:\\Websites\\site.com\\bad.html",
                                 "c:\\Websites\\site.com\\bad.html.tmp"};
        system_.boxes.while_open = [this] { DoBehindBox(); };
        crawl::TargetFolder = "C:\\Websites\\";
        window_.JoinNetwork([this](fakes::FakeSocket& socket) { Attach(socket); });
    }

    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World() { bas_Connections::MostResponseBytes = std::numeric_limits<std::int32_t>::max(); }

    /// From now on, clears the report after every event.
    void TakeReportAway() { checks_.report_is_there = false; }

    /// Everything visible so far.
    std::string Trace() {
        for (const auto& [path, contents] : system_.files.files)
            trace_ += path + "\n" + contents + "\n";
        return std::move(trace_);
    }

    /// Runs these events, then lets the servers finish until the crawl is over. Returns the first
    /// violated invariant, or "".
    std::string Run(const std::vector<Event>& events) {
        try {
            to_come_.assign(events.begin(), events.end());
            while (checks_.Fault().empty() && DoNext()) {
                checks_.Look();
            }
            LetItEnd();
        } catch (const std::exception& e) {
            return e.what();
        }
        return checks_.Fault();
    }

  private:
    void Attach(fakes::FakeSocket& socket) {
        const int slot = static_cast<int>(attached_++ % crawl::kSlotCount) + 1;
        socket.peer_on_connect = [this, slot] {
            checks_.Connected(slot);
            const crawl::ConnectionSlot& now = crawl::Slots[slot];
            trace_ += std::to_string(loop_.Now()) + " " + now.Host + now.Path + "\n";
        };
        fakes::FakeTimer& timer = window_.tmrOut(slot);
        timer.on_timer = [this, slot, handler = timer.on_timer] {
            checks_.TimerFired(slot, handler);
        };
    }

    bool DoNext() {
        if (to_come_.empty()) return false;
        const Event event = to_come_.front();
        to_come_.pop_front();
        if (event.yield > 0) {
            loop_.AtYield(event.yield, [this, event] { Do(event); });
        } else {
            Do(event);
            loop_.RunUntilIdle();
        }
        return true;
    }

    void Note() {
        for (const auto& row : window_.rows)
            trace_ += row.status + "|" + row.size + "|" + row.received + "\n";
        trace_ += window_.label3 + "|" + window_.label4 + "|" + window_.label5 + "\n";
        if (!checks_.report_is_there) crawl::Report.Clear();
    }

    void Do(const Event& event) {
        Note();
        if (user_gone_) return;
        if (event.kind == Kind::Wait) {
            loop_.Advance(event.amount);
        } else if (event.kind < Kind::Wait) {
            BeServed(event);
        } else if (boxes_open_ == 0) {
            Click(event);
        }
    }

    /// While a box is open, the next two events happen.
    void DoBehindBox() {
        const std::string title = system_.boxes.asked.back().title;
        checks_.Asked(title);
        ++boxes_open_;
        DoNext();
        DoNext();
        --boxes_open_;
        const bool yes = title == "Stop Download" && stop_answer_;
        if (yes) checks_.StopConfirmed();
        system_.boxes.answers = {yes ? platform::BoxAnswer::Yes : platform::BoxAnswer::No};
    }

    bool IsServed(int slot) {
        return window_.Sock(slot).State() != platform::SocketState::Closed &&
               checks_.PeerOf(slot) != nullptr && !checks_.PeerOf(slot)->ended;
    }

    void BeServed(const Event& event) {
        std::vector<int> open;
        for (int i = 1; i <= crawl::kSlotCount; ++i) {
            if (IsServed(i)) open.push_back(i);
        }
        if (open.empty()) return;
        const int slot = open[event.which % open.size()];
        if (event.kind == Kind::Serve || !checks_.PeerOf(slot)->accepted) Serve(slot, event.amount);
        if (event.kind == Kind::Finish) Serve(slot, kEverything);
        if (event.kind > Kind::Finish) End(slot, event.kind == Kind::Reset);
    }

    /// The slot's server accepts or refuses. If it has accepted, it sends and may end the
    /// connection.
    void Serve(int slot, std::size_t amount) {
        Peer& peer = *checks_.PeerOf(slot);
        fakes::FakeSocket& socket = window_.Sock(slot);
        const Ending ending = peer.response->ending;
        if (peer.ended || (peer.accepted && ending == Ending::Silence)) return;
        if (ending == Ending::Refusal) {
            socket.PeerRefuses();
            peer.ended = true;
        } else if (!peer.accepted) {
            socket.PeerAccepts();
            peer.accepted = true;
        } else {
            const std::string& bytes = peer.response->bytes;
            const std::size_t all = ending == Ending::Reset ? bytes.size() / 2 : bytes.size();
            const std::size_t count = std::min(amount, std::max(all, peer.sent) - peer.sent);
            socket.PeerSends(bytes.substr(peer.sent, count));
            checks_.Sent(slot, count);
            if (peer.sent >= all) End(slot, ending == Ending::Reset);
        }
    }

    void End(int slot, bool reset) {
        if (std::exchange(checks_.PeerOf(slot)->ended, true)) return;
        if (reset) {
            window_.Sock(slot).PeerResets();
        } else {
            window_.Sock(slot).PeerCloses();
            checks_.ClosedByServer(slot);
        }
    }

    void Click(const Event& event) {
        if (paused_ != (event.kind == Kind::Resume)) return;
        const char* const host = kHosts[event.which % std::size(kHosts)];
        if (event.kind == Kind::Start) {
            Start(host);
        } else if (event.kind == Kind::Stop) {
            Stop(event.amount % 2 == 1);
            if (event.amount % 4 == 3) Start(host);
        } else if (event.kind == Kind::Connections) {
            window_.txt_max = kConnections[event.which % std::size(kConnections)];
            bas_Connections::txtMax_Click();
        } else if (paused_ || window_.pause_enabled) {
            paused_ = !paused_;
            checks_.Paused(paused_);
            (paused_ ? bas_Connections::mnupause_Click : bas_Connections::Resume)();
        }
    }

    void Start(const std::string& address) {
        // With 0 connections the start page would be lost, and the crawl would never end.
        if (!window_.start_enabled || leaving_ || bas_Connections::ConnectionsCount() < 1) return;
        crawl::Stopping = false;
        window_.text1 = address;
        checks_.Started(address);
        bas_Connections::ConnectNowNow();
        for (int i = 1; i <= crawl::kSlotCount; ++i)
            window_.tmrOut(i).SetInterval(timeout_);
    }

    void Stop(bool yes) {
        if (!window_.stop_enabled || leaving_) return;
        stop_answer_ = yes;
        leaving_ = true;
        bas_Connections::AskStop();
        leaving_ = false;
    }

    void LetItEnd() {
        if (bas_Connections::ConnectionsCount() < 1) window_.txt_max = "4";
        Click({Kind::Resume});
        user_gone_ = true;
        for (int round = 0; round < 1000 && checks_.CrawlRuns() && checks_.Fault().empty();
             ++round) {
            for (int i = 1; i <= crawl::kSlotCount; ++i) {
                if (IsServed(i)) Serve(i, kEverything);
            }
            loop_.RunUntilIdle();
            checks_.Look();
            loop_.Advance(timeout_ / 2);
            checks_.Look();
            Note();
        }
        checks_.MustBeOver();
        loop_.Advance(5 * timeout_);
        checks_.Look();
    }

    Sites sites_;
    std::int64_t timeout_;
    fakes::FakeLoop loop_;
    fakes::FakeSystem system_{loop_};
    fakes::FakeMainWindow window_{loop_};
    Checks checks_{sites_, loop_, window_, system_.files};
    std::deque<Event> to_come_;
    int boxes_open_ = 0;
    bool stop_answer_ = false, leaving_ = false, paused_ = false, user_gone_ = false;
    unsigned attached_ = 0;
    std::string trace_;
};

}  // namespace

std::string Trace(unsigned seed, const std::vector<Event>& events, bool report_taken_away) {
    World world(seed);
    if (report_taken_away) world.TakeReportAway();
    world.Run(events);
    return world.Trace();
}

std::string Fault(unsigned seed, const std::vector<Event>& events) {
    return World(seed).Run(events);
}

}  // namespace schedules
