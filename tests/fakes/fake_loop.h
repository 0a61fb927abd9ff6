#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "platform/event_loop.h"

namespace fakes {

/// An event loop in virtual time. Nothing happens by itself: events run when the test lets time
/// pass, and when the code under test yields.
class FakeLoop : public platform::EventLoop {
  public:
    using Handler = std::function<void()>;

    /// Milliseconds since the loop was made.
    std::int64_t Now() const { return now_; }

    /// Runs `event` in the next turn, after everything posted before it and before what was put off
    /// until now: what has arrived comes before a timer that is due.
    void Post(Handler event) { Add(now_, kPosted, std::move(event)); }
    /// Runs `event` in so many milliseconds.
    void PostIn(std::int64_t milliseconds, Handler event) {
        Add(now_ + milliseconds, kPutOff, std::move(event));
    }

    /// Lets time pass, running everything that falls due in the order of its time.
    void Advance(std::int64_t milliseconds) { RunTo(now_ + milliseconds); }
    /// Runs everything that is due now, also what these events post, without time passing.
    void RunUntilIdle() { RunTo(now_); }

    void DoEvents() override { Yield(); }
    void DoEventsOften() override { Yield(); }

    /// How often the code under test has yielded so far.
    int Yields() const { return yields_; }
    /// Runs `script` at the `nth` yield from now on (1 is the next), before pending events.
    void AtYield(int nth, Handler script) { scripts_.emplace(yields_ + nth, std::move(script)); }

  private:
    enum Rank { kPosted, kPutOff };
    /// When it is due, its rank among those, its number among all.
    using Key = std::tuple<std::int64_t, Rank, std::uint64_t>;

    void Add(std::int64_t due, Rank rank, Handler event) {
        events_.emplace(Key(due, rank, posted_++), std::move(event));
    }

    /// The first event due by `time` that was posted before number `posted_before`.
    std::optional<Handler> TakeDue(std::int64_t time, std::uint64_t posted_before) {
        for (auto event = events_.begin();
             event != events_.end() && std::get<0>(event->first) <= time; ++event) {
            if (std::get<2>(event->first) >= posted_before) continue;
            now_ = std::max(now_, std::get<0>(event->first));
            Handler handler = std::move(event->second);
            events_.erase(event);
            return handler;
        }
        return std::nullopt;
    }

    void RunTo(std::int64_t time) {
        constexpr auto kAll = std::numeric_limits<std::uint64_t>::max();
        int left = 10'000'000;
        // An event may have let more time pass than was asked for here.
        while (auto event = TakeDue(std::max(time, now_), kAll)) {
            (*event)();
            if (--left == 0) throw std::logic_error("the events never come to an end");
        }
        now_ = std::max(now_, time);
    }

    void Yield() {
        ++yields_;
        while (const auto script = scripts_.extract(yields_))
            script.mapped()();
        // What these events post is left for the next turn, as in a real loop.
        const std::uint64_t posted_before = posted_;
        while (auto event = TakeDue(now_, posted_before))
            (*event)();
    }

    std::int64_t now_ = 0;
    std::uint64_t posted_ = 0;
    std::map<Key, Handler> events_;
    int yields_ = 0;
    std::multimap<int, Handler> scripts_;
};

}  // namespace fakes
