#pragma once

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "crawl/crawl_state.h"
#include "tests/fakes/fake_main_window.h"
#include "tests/fakes/fake_system.h"
#include "tests/schedule_site.h"
#include "text/one_based.h"

/// The invariants that random schedules check.
namespace schedules {

/// A connection as its server sees it.
struct Peer {
    unsigned job = 0;  ///< the slot's job when the connection began
    int crawl = 0;
    std::string before;  ///< what the job received on earlier connections
    const Response* response = nullptr;
    std::size_t sent = 0;       ///< bytes of the response
    std::int64_t heard_at = 0;  ///< when the server last sent
    bool refused = false;       ///< the request leads above the root, so the engine refuses it
    bool accepted = false, timed_out = false;
    bool ended = false;  ///< closed, reset or refused by the server

    std::string Received() const { return before + response->bytes.substr(0, sent); }
};

/// Follows what the user and the servers do, and checks the engine after each event.
class Checks {
  public:
    Checks(const Sites& sites, const fakes::FakeLoop& loop, fakes::FakeMainWindow& window,
           const fakes::MemoryFiles& files)
        : sites_(sites), loop_(loop), window_(window), files_(files) {
        crawl::List1.on_change = [this] { QueueChanged(); };
    }
    ~Checks() { crawl::List1.on_change = nullptr; }
    Checks(const Checks&) = delete;
    Checks& operator=(const Checks&) = delete;

    bool report_is_there = true;

    /// The first violated invariant, or "".
    const std::string& Fault() const { return fault_; }

    // What user, servers and engine do.
    void Started(const std::string& address);
    void StopConfirmed();
    void Paused(bool paused);
    void Asked(const std::string& title);
    void Connected(int slot);
    void TimerFired(int slot, const std::function<void()>& handler);
    void Sent(int slot, std::size_t count);
    void ClosedByServer(int slot);

    /// The server's side of the slot's connection; null if there is none.
    Peer* PeerOf(int slot) { return peers_[slot]; }
    bool CrawlRuns() const { return runs_; }

    /// Checks the invariants. To be called when no event is being handled.
    void Look();
    void MustBeOver() { Expect(!runs_, "the crawl does not end"); }

  private:
    struct Expected {
        const Peer* peer;
        std::string file, contents;
    };

    bool Expect(bool holds, const std::string& what);
    void QueueChanged();
    void LoseConnection(int slot);
    void LookAtSlot(int slot);
    void LookAtFiles();
    void LookAtReport();

    const Sites& sites_;
    const fakes::FakeLoop& loop_;
    fakes::FakeMainWindow& window_;
    const fakes::MemoryFiles& files_;
    std::string fault_;
    std::deque<Peer> all_peers_;
    text::OneBased<Peer*, crawl::kSlotCount> peers_;
    text::OneBased<unsigned, crawl::kSlotCount> firing_;  ///< the job in a timeout handler
    std::vector<std::string> queue_;
    std::vector<std::string> taken_on_;     ///< addresses of this crawl, in order
    std::vector<crawl::Outcome> outcomes_;  ///< their outcomes at the last check
    std::string next_address_;              ///< the last one taken off the queue, or the start page
    std::set<std::string> seen_responses_;  ///< the allowed contents of the mirror's files
    std::vector<Expected> expected_;        ///< what the mirror must contain now
    int crawl_ = 0;                         ///< incremented when the user cuts the connections
    int unreported_ = 0;                    ///< crawls whose end has not been announced yet
    bool runs_ = false, ticks_ = false;
    bool resumed_late_ = false;  ///< after the crawl's end, before its announcement
    bool memory_short_ = false;  ///< responses may have been given up since the last check
    bool refused_ = false;       ///< the newest connection's request leads above the root
};

}  // namespace schedules
