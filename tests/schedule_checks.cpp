#include "tests/schedule_checks.h"

#include <algorithm>
#include <map>
#include <utility>

#include "engine/endings.h"
#include "engine/response_memory.h"
#include "engine/scheduler.h"
#include "output/mirror_files.h"
#include "output/rewrite_links.h"
#include "text/text.h"

namespace schedules {

namespace {

using platform::SocketState;

/// What is saved from a response.
std::string Saved(const std::string& received, bool has_lines) {
    const std::size_t blank_line = received.find("\r\n\r\n");
    std::string page(text::Mid(received, blank_line == std::string::npos ? 4 : blank_line + 5));
    bas_Output::RewritingRules({has_lines, /*is_top_level=*/false, "none"}).ApplyTo(page);
    return page + "\r\n";
}

}  // namespace

bool Checks::Expect(bool holds, const std::string& what) {
    if (!holds && fault_.empty()) fault_ = what;
    return holds;
}

void Checks::Started(const std::string& address) {
    if (runs_) ++unreported_;
    runs_ = ticks_ = true;
    resumed_late_ = false;
    peers_ = {};
    next_address_ = address;
    taken_on_ = {address};
    outcomes_.clear();
}

void Checks::StopConfirmed() {
    runs_ = ticks_ = false;
    ++crawl_;
}

void Checks::Paused(bool paused) {
    ticks_ = !paused;
    resumed_late_ = !paused && window_.start_enabled;
}

void Checks::Asked(const std::string& title) {
    if (title != "Done.") return;
    if (unreported_ > 0) {
        --unreported_;
    } else {
        Expect(runs_, "a crawl ends twice");
        runs_ = false;
        ticks_ = std::exchange(resumed_late_, false);
    }
}

void Checks::QueueChanged() {
    const std::size_t count = crawl::List1.Count();
    if (count == queue_.size() + 1) {
        queue_.push_back(crawl::List1.Item(count - 1));
        taken_on_.push_back(queue_.back());
    } else if (count + 1 == queue_.size()) {
        next_address_ = std::exchange(queue_, {queue_.begin(), queue_.end() - 1}).back();
    } else if (count == 0) {
        Expect(queue_.empty() || !runs_, "a running crawl loses its queue");
        queue_.clear();
    }
    Expect(queue_ == fakes::Items(crawl::List1), "the queue changes other than at its end");
}

void Checks::LoseConnection(int slot) {
    const Peer* const peer = std::exchange(peers_[slot], nullptr);
    if (peer == nullptr || peer->crawl != crawl_) return;
    Expect(peer->ended || peer->timed_out || peer->refused || memory_short_,
           "a connection is closed for no reason");
}

void Checks::Connected(int slot) {
    const crawl::ConnectionSlot& now = crawl::Slots[slot];
    const Peer* const old = peers_[slot];
    Expect(runs_, "a connection is made while no crawl runs");
    if (now.Attempts == 1) {
        Expect(slot <= bas_Connections::ConnectionsCount(), "more slots than connections are used");
        Expect(next_address_.ends_with(now.Url) && !now.Url.empty(),
               "the address taken is not the newest");
        Expect(old == nullptr || old->job != now.Job, "a job continues with another address");
        next_address_.clear();
    } else {
        Expect(now.Attempts <= 3, "a fourth attempt is made");
        Expect(firing_[slot] == now.Job, "a job is tried again without a timeout");
    }
    LoseConnection(slot);
    refused_ = text::Contains(now.Path, "/..");
    peers_[slot] = &all_peers_.emplace_back(Peer{.job = now.Job,
                                                 .crawl = crawl_,
                                                 .before = std::string(now.Response.View()),
                                                 .response = &sites_.At(now.Host + now.Path),
                                                 .refused = refused_});
}

void Checks::TimerFired(int slot, const std::function<void()>& handler) {
    const crawl::ConnectionSlot& now = crawl::Slots[slot];
    Expect(runs_, "a timeout fires while no crawl runs");
    Peer* const peer = peers_[slot];
    // Silence does not count while the slot's own response is processed, nor for an idle slot while
    // any response is.
    const auto at_work = [](const auto& other) { return other.JobAtWork == other.Job; };
    const bool idle = window_.Sock(slot).State() == SocketState::Closed;
    const bool others_work = std::any_of(crawl::Slots.begin(), crawl::Slots.end(), at_work);
    if (peer != nullptr && !at_work(now) && !(idle && others_work)) {
        const bool silent = loop_.Now() - peer->heard_at >= window_.tmrOut(slot).Interval();
        Expect(silent || peer->sent == 0, "a server that was not silent times out");
        peer->timed_out = true;
    }
    const unsigned before = std::exchange(firing_[slot], now.Job);
    handler();
    firing_[slot] = before;
}

void Checks::Sent(int slot, std::size_t count) {
    peers_[slot]->sent += count;
    if (count > 0) peers_[slot]->heard_at = loop_.Now();
    std::size_t all = 0;
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        const bool open = window_.Sock(i).State() != SocketState::Closed;
        if (peers_[i] != nullptr && open) all += peers_[i]->before.size() + peers_[i]->sent;
    }
    // A scan may make a text longer.
    if (all > bas_Connections::MostResponseBytes / 2) memory_short_ = true;
}

void Checks::ClosedByServer(int slot) {
    const Peer& peer = *peers_[slot];
    if (peer.sent == 0) return;
    const std::string& file = peer.response->file;
    for (const bool has_lines : {false, true}) {
        seen_responses_.insert(Saved(peer.Received(), has_lines));
    }
    if (file.empty()) return;
    expected_.push_back({&peer, file, Saved(peer.Received(), !file.ends_with(".gif"))});
}

void Checks::LookAtSlot(int slot) {
    const crawl::ConnectionSlot& now = crawl::Slots[slot];
    fakes::FakeSocket& socket = window_.Sock(slot);
    Expect(now.JobAtWork == 0, "a finished response is still being processed");
    const Peer* const peer = peers_[slot];
    if (socket.State() == SocketState::Closed) {
        const bool given_up =
            peer == nullptr || !peer->timed_out || peer->crawl != crawl_ || memory_short_;
        Expect(given_up || now.Attempts == 3 || !runs_, "a job that timed out is not tried again");
        LoseConnection(slot);
        return;
    }
    if (!Expect(runs_, "a connection outlives its crawl") ||
        !Expect(peer != nullptr, "an unknown connection is open")) {
        return;
    }
    Expect(!now.Url.empty() && socket.Host() == now.Host, "slot and socket disagree");
    Expect(peer->job == now.Job, "a connection serves another job");
    Expect(window_.tmrOut(slot).Enabled(), "a connection has no timeout");
    // The response is exactly what has arrived, in order. Bytes that came before a reset may be
    // lost.
    const std::string received = peer->Received();
    const bool whole = socket.State() == SocketState::Connected;
    Expect(received.starts_with(now.Response.View()) &&
               (!whole || received.size() == now.Response.Size()),
           "a response is not what its server sent");
}

void Checks::LookAtFiles() {
    const std::string placeholder = std::string(bas_Output::kPlaceholderText) + "\r\n";
    for (const Expected& e : expected_) {
        const std::string found = files_.At(e.file);
        const bool another =
            std::any_of(expected_.begin(), expected_.end(),
                        [&](const Expected& o) { return o.file == e.file && o.contents == found; });
        const bool cut_off = e.peer->timed_out || e.peer->crawl != crawl_ || memory_short_;
        Expect(another || cut_off, "a complete response is not saved: " + e.file);
        const bool waits = files_.files.contains(e.file + ".tmp");
        Expect(!waits || cut_off, "a saved file still has its placeholder: " + e.file);
    }
    expected_.clear();
    for (const auto& [path, contents] : files_.files) {
        if (path.ends_with(".txt")) continue;  // the records
        const bool known = path.ends_with(".tmp")
                               ? text::ReplaceAll(contents, placeholder, "").empty()
                               : seen_responses_.contains(contents);
        Expect(known, "no server sent the contents of " + path);
    }
}

/// Every address has one row, which agrees with what the checks have seen.
void Checks::LookAtReport() {
    using crawl::Outcome;
    if (!Expect(crawl::Report.Count() == taken_on_.size(),
                "the report does not have one row per address"))
        return;
    outcomes_.resize(taken_on_.size());
    std::map<Outcome, std::size_t> counts;
    std::size_t under_way = 0;
    for (std::size_t i = 0; i < taken_on_.size(); ++i) {
        const crawl::ReportRow& row = crawl::Report.Row(i);
        const Outcome before = std::exchange(outcomes_[i], row.outcome);
        ++counts[row.outcome];
        if (row.outcome == Outcome::UnderWay) ++under_way;
        Expect(row.address == taken_on_[i], "a row has another address");
        const auto is_good = [](Outcome outcome) {
            return outcome >= Outcome::Saved && outcome <= Outcome::Error;
        };
        Expect(!is_good(before) || row.outcome == before, "a good outcome is lost");
        Expect(row.settled || (runs_ && !is_good(row.outcome)), "a row has not settled");
        if (!runs_) Expect(crawl::HasEnded(row.outcome), "a row has no outcome after the end");
        if (is_good(row.outcome) || row.outcome == Outcome::Short) {
            const std::string file =
                bas_Connections::SavedFileOf(crawl::TargetFolder, std::string(row.address));
            Expect(files_.FileLength(file).has_value(), "a saved file does not exist: " + file);
        }
        if (row.outcome == Outcome::Unanswered) {
            Expect(row.attempts == 3 && !row.detail.empty(), "a file is given up early");
        }
    }
    for (std::size_t i = 0; i < crawl::kOutcomeCount; ++i) {
        const auto outcome = static_cast<Outcome>(i);
        Expect(crawl::Report.CountOf(outcome) == counts[outcome], "outcomes are miscounted");
    }
    Expect(counts[Outcome::Queued] == crawl::List1.Count(),
           "the report counts other queued addresses than the queue");
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        const std::size_t row = crawl::Slots[i].Row;
        if (row < outcomes_.size() && outcomes_[row] == Outcome::UnderWay) --under_way;
    }
    Expect(!runs_ || under_way == 0, "a row is under way without a connection");
}

void Checks::Look() {
    std::size_t held = 0;
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        LookAtSlot(i);
        held += crawl::Slots[i].Response.BytesHeld();
        if (!runs_) Expect(!window_.tmrOut(i).Enabled(), "a timeout is enabled after the end");
    }
    Expect(held <= bas_Connections::MostResponseBytes, "the responses hold too much memory");
    Expect(window_.start_enabled != runs_, "the start button does not show whether a crawl runs");
    Expect(window_.tmrMove().Enabled() == ticks_, "the scheduler's timer is wrongly on or off");
    Expect(unreported_ == 0, "the end of a crawl is not announced");
    const bool done = crawl::List1.Empty() && bas_Connections::AllSocketsClosed();
    if (!runs_) Expect(done, "addresses are queued while no crawl runs");
    // A request that the engine refuses ends by its timeout.
    if (runs_) Expect(!done || refused_, "a finished crawl goes on");
    LookAtFiles();
    if (report_is_there) LookAtReport();
    memory_short_ = false;
}

}  // namespace schedules
