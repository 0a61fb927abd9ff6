#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/event_loop.h"

namespace fakes {

/// An event loop in virtual time. Nothing happens by itself: events run when the test lets time
/// pass, and when the code under test yields.
class FakeLoop : public platform::EventLoop {
  public:
    using Handler = std::function<void()>;

    /// Milliseconds since the loop was created.
    std::int64_t Now() const { return now_; }

    /// Runs `event` in the next iteration, after everything posted before it.
    void Post(Handler event) { arrivals_.emplace(posted_++, std::move(event)); }
    /// Runs `event` after this many milliseconds, as a timer does: events posted by then run first,
    /// no matter how long the timer has been due.
    void PostIn(std::int64_t milliseconds, Handler event) {
        timers_.emplace(std::pair(now_ + milliseconds, posted_++), std::move(event));
    }

    /// Lets time pass without running events, like a slow handler.
    void Block(std::int64_t milliseconds) { now_ += milliseconds; }

    /// Lets time pass and runs all events that become due, in order of time.
    void Advance(std::int64_t milliseconds) { RunTo(now_ + milliseconds); }
    /// Runs all events that are due now, including those that they post. No time passes.
    void RunUntilIdle() { RunTo(now_); }

    void DoEvents() override { Yield(); }
    void DoEventsThrottled() override { Yield(); }

    /// How often the code under test has yielded so far.
    int Yields() const { return yields_; }
    /// Runs `script` at the `nth` yield from now on (1 is the next), before pending events.
    void AtYield(int nth, Handler script) { scripts_.emplace(yields_ + nth, std::move(script)); }

  private:
    using Number = std::uint64_t;  // in the order of posting

    /// The next event due by `time` that was posted before number `posted_before`.
    std::optional<Handler> TakeDue(std::int64_t time, Number posted_before) {
        if (!arrivals_.empty()) {
            if (arrivals_.begin()->first >= posted_before) return std::nullopt;
            return std::move(arrivals_.extract(arrivals_.begin()).mapped());
        }
        for (auto timer = timers_.begin(); timer != timers_.end() && timer->first.first <= time;
             ++timer) {
            if (timer->first.second >= posted_before) continue;
            now_ = std::max(now_, timer->first.first);
            return std::move(timers_.extract(timer).mapped());
        }
        return std::nullopt;
    }

    void RunTo(std::int64_t time) {
        constexpr auto kAll = std::numeric_limits<Number>::max();
        int left = 10'000'000;
        // An event may itself have let time pass beyond `time`.
        while (auto event = TakeDue(std::max(time, now_), kAll)) {
            (*event)();
            if (--left == 0) throw std::logic_error("the events never end");
        }
        now_ = std::max(now_, time);
    }

    void Yield() {
        ++yields_;
        while (const auto script = scripts_.extract(yields_))
            script.mapped()();
        // As in a real loop, events that these events post wait for the next iteration.
        const Number posted_before = posted_;
        while (auto event = TakeDue(now_, posted_before))
            (*event)();
    }

    std::int64_t now_ = 0;
    Number posted_ = 0;
    std::map<Number, Handler> arrivals_;
    std::map<std::pair<std::int64_t, Number>, Handler> timers_;  // by the time they are due
    int yields_ = 0;
    std::multimap<int, Handler> scripts_;
};

}  // namespace fakes
