#include "crawl/report.h"

#include <algorithm>
#include <utility>

namespace crawl {

namespace {

constexpr std::array<std::string_view, kOutcomeCount> kNames = {
    "queued",     "under way",   "saved",     "moved",     "error",     "short",
    "unanswered", "not written", "too large", "not asked", "unfinished"};

/// A server can make every detail different. Beyond this number, sharing is not worth a search.
constexpr std::size_t kMostShared = 1000;
constexpr std::size_t kLongestDetail = 1000;

/// A new outcome replaces one of the same or a lower rank. The highest rank is final.
constexpr int kWholeOnDisk = 4;
int RankOf(Outcome outcome) {
    switch (outcome) {
        case Outcome::Saved:
        case Outcome::Moved:
        case Outcome::Error:
            return kWholeOnDisk;
        case Outcome::Short:
            return 3;
        case Outcome::NotWritten:
        case Outcome::TooLarge:
        case Outcome::NotAsked:
            return 2;
        case Outcome::Unanswered:
            return 1;
        case Outcome::Queued:
        case Outcome::UnderWay:
        case Outcome::Unfinished:
            break;
    }
    return 0;
}

Outcome OutcomeOf(const Answer& answer) {
    if (answer.status >= 400 && answer.status < 600) return Outcome::Error;
    if (answer.status >= 300 && answer.status < 400) return Outcome::Moved;
    return answer.bytes < answer.announced.value_or(0) ? Outcome::Short : Outcome::Saved;
}

std::chrono::milliseconds SteadyTime() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace

std::string_view NameOf(Outcome outcome) {
    return kNames[static_cast<std::size_t>(outcome)];
}

AddressReport::AddressReport() : clock(SteadyTime), began_(clock()) {}

void AddressReport::Clear() {
    for (ReportObserver* const observer : observers_)
        observer->AboutToClear();
    rows_.clear();
    counts_ = {};
    ended_.clear();
    queued_.clear();
    taken_.clear();
    shared_.clear();
    texts_.Clear();
    files_ = {};
    answered_row_ = kNoRow;
    already_there_ = 0;
    ++changes_;
    began_ = clock();
    stopped_ = false;
}

void AddressReport::Add(std::string_view address) {
    const std::size_t row = rows_.size();
    rows_.emplace_back().address = texts_.Keep(address);
    ++counts_[static_cast<std::size_t>(Outcome::Queued)];
    Tell(&ReportObserver::RowAdded, row);
    if (!stopped_) {
        queued_.push_back(static_cast<std::uint32_t>(row));
        return;
    }
    SetOutcome(row, Outcome::Unfinished);
    Settle(row);
}

std::size_t AddressReport::TakeNewest(std::size_t old) {
    if (const ReportRow* const row = Find(old); row && HasEnded(row->outcome)) Settle(old);
    if (queued_.empty()) return kNoRow;
    const std::size_t row = queued_.back();
    queued_.pop_back();
    taken_.push_back(row);
    rows_[row].started = Elapsed();
    SetOutcome(row, Outcome::UnderWay);
    return row;
}

void AddressReport::NoteFailedTry(std::size_t row, int attempt, std::string_view why) {
    ReportRow* const found = Find(row);
    if (found == nullptr || HasEnded(found->outcome)) return;
    found->attempts = static_cast<std::uint16_t>(attempt);
    if (found->detail == why) return;
    found->detail = Share(why);
    Tell(&ReportObserver::RowChanged, row);
}

void AddressReport::End(std::size_t row, Outcome outcome, int attempts, std::string_view detail) {
    if (answered_row_ == row) answered_row_ = kNoRow;  // given up while being saved
    EndAs(row, outcome, attempts, {.detail = detail});
}

void AddressReport::NoteAnswer(std::size_t row, int attempts, const Answer& answer) {
    answered_row_ = row;
    answered_attempts_ = attempts;
    answer_ = answer;
}

void AddressReport::NoteWrite(std::size_t row, std::string_view why_not) {
    if (std::exchange(answered_row_, kNoRow) != row) return;
    if (!why_not.empty()) answer_.detail = why_not;
    EndAs(row, why_not.empty() ? OutcomeOf(answer_) : Outcome::NotWritten, answered_attempts_,
          answer_);
}

void AddressReport::Stop() {
    stopped_ = true;
    std::vector<std::uint32_t> unfinished = std::exchange(queued_, {});
    for (const std::size_t row : std::vector<std::size_t>(taken_)) {
        if (HasEnded(rows_[row].outcome)) {
            Settle(row);
        } else {
            unfinished.push_back(static_cast<std::uint32_t>(row));
        }
    }
    std::ranges::sort(unfinished);
    for (const std::size_t row : unfinished) {
        if (rows_[row].outcome == Outcome::UnderWay)
            rows_[row].took = Elapsed() - rows_[row].started;
        SetOutcome(row, Outcome::Unfinished);
        Settle(row);
    }
}

void AddressReport::CountAlreadyThere() {
    ++already_there_;
    ++changes_;
    for (ReportObserver* const observer : observers_)
        observer->AlreadyThereChanged();
}

void AddressReport::AddObserver(ReportObserver& observer) {
    observers_.push_back(&observer);
}

void AddressReport::RemoveObserver(ReportObserver& observer) {
    std::erase(observers_, &observer);
}

ReportRow* AddressReport::Find(std::size_t row) {
    return row < rows_.size() ? &rows_[row] : nullptr;
}

/// A permanent copy of `detail`. Rows share it as long as there are few different details.
std::string_view AddressReport::Share(std::string_view detail) {
    detail = detail.substr(0, kLongestDetail);
    if (const auto known = shared_.find(detail); known != shared_.end()) return *known;
    const std::string_view kept = texts_.Keep(detail);
    if (shared_.size() < kMostShared) shared_.insert(kept);
    return kept;
}

void AddressReport::SetOutcome(std::size_t row, Outcome outcome) {
    Outcome& present = rows_[row].outcome;
    --counts_[static_cast<std::size_t>(present)];
    ++counts_[static_cast<std::size_t>(outcome)];
    if (!HasEnded(present) && HasEnded(outcome)) ended_.push_back(static_cast<std::uint32_t>(row));
    present = outcome;
    Tell(&ReportObserver::RowChanged, row);
}

void AddressReport::EndAs(std::size_t row, Outcome outcome, int attempts, const Answer& answer) {
    ReportRow* const found = Find(row);
    if (found == nullptr || found->settled || RankOf(outcome) < RankOf(found->outcome)) return;
    found->detail = Share(answer.detail);
    found->status = answer.status;
    found->bytes = answer.bytes;
    found->announced = answer.announced;
    found->attempts = static_cast<std::uint16_t>(attempts);
    found->took = Elapsed() - found->started;
    SetOutcome(row, outcome);
    if (RankOf(outcome) == kWholeOnDisk) Settle(row);
}

void AddressReport::Settle(std::size_t row) {
    if (std::exchange(rows_[row].settled, true)) return;
    std::erase(taken_, row);
    Tell(&ReportObserver::RowSettled, row);
}

void AddressReport::Tell(void (ReportObserver::*what)(std::size_t), std::size_t row) {
    ++changes_;
    for (ReportObserver* const observer : observers_)
        (observer->*what)(row);
}

Milliseconds AddressReport::Elapsed() const {
    return std::chrono::duration_cast<Milliseconds>(clock() - began_);
}

}  // namespace crawl
