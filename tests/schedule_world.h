#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "tests/fakes/fake_loop.h"
#include "tests/fakes/fake_main_window.h"
#include "tests/fakes/fake_network.h"
#include "tests/fakes/fake_system.h"
#include "tests/schedule_checks.h"
#include "tests/schedule_events.h"
#include "tests/schedule_site.h"

/// Random schedules. This file: the engine, and around it a user, servers and time that do what a
/// list of events says.
namespace schedules {

class World : private fakes::FakeNetwork {
  public:
    /// `seed` gives the sites, the timeout and the memory for answers.
    explicit World(unsigned seed);
    ~World() override;

    /// Does these events, then lets the servers do what they do by themselves until the crawl is
    /// over. What went wrong first, or "".
    std::string Run(const std::vector<Event>& events);

  private:
    void Attach(fakes::FakeSocket& socket) override;
    void Boot();
    void Restart(bool by_exit);
    bool DoNext();
    void Do(const Event& event);
    void DoNow(const Event& event);
    void DoBehindBox();
    void BeServed(const Event& event);
    void Serve(int slot, std::size_t amount);
    void End(int slot, bool reset);
    void Click(const Event& event);
    void Stop(bool yes);
    void Start(const std::string& address);
    void LetItEnd();

    Sites sites_;
    std::int64_t timeout_;
    fakes::FakeLoop loop_;
    std::optional<fakes::FakeSystem> system_;
    std::optional<fakes::FakeMainWindow> window_;
    Checks checks_;
    std::deque<Event> to_come_;
    int boxes_open_ = 0;
    bool stop_answer_ = false, leaving_ = false;
    bool paused_ = false;
    bool user_gone_ = false;
    unsigned attached_ = 0;
};

/// What goes wrong in this schedule first, or "".
std::string Fault(unsigned seed, const std::vector<Event>& events);

/// The events of a schedule that fails, without those that it fails without.
std::vector<Event> Shortened(unsigned seed, std::vector<Event> events);

/// Runs the random schedule of this seed. When it fails: what goes wrong, and a short schedule that
/// goes wrong, as code.
std::string Report(unsigned seed);

}  // namespace schedules
