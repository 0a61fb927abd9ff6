#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "text/text_store.h"

/// What became of each address of a crawl. The engine, the link extraction and the mirror record it
/// where they learn it. No decision depends on it.
namespace crawl {

enum class Outcome : std::uint8_t {
    Queued,
    UnderWay,
    Saved,       ///< answered, and the file was written
    Moved,       ///< the same with status 3xx; the detail is the new location
    Error,       ///< the same with status 4xx or 5xx; the detail is the reason phrase
    Short,       ///< saved, but with fewer bytes than announced
    Unanswered,  ///< the last try failed; the detail is why
    NotWritten,  ///< answered, but the file could not be written; the detail is why
    TooLarge,    ///< given up for lack of memory
    NotAsked,    ///< the path climbs above the site's root
    Unfinished,  ///< queued or under way when the crawl was stopped
};
inline constexpr std::size_t kOutcomeCount = 11;

/// The outcome as display text: "saved", "not written".
std::string_view NameOf(Outcome outcome);

/// Whether the outcome is neither queued nor under way.
constexpr bool HasEnded(Outcome outcome) {
    return outcome > Outcome::UnderWay;
}

/// A compact duration; up to 49 days.
using Milliseconds = std::chrono::duration<std::uint32_t, std::milli>;

/// One address. Its texts stay valid until the report is cleared.
struct ReportRow {
    std::string_view address;  ///< as in log.txt; the first one as requested
    std::string_view detail;   ///< see `Outcome`; while under way, why the last try failed
    std::uint64_t bytes = 0;   ///< of the body, as received
    std::optional<std::uint64_t> announced;  ///< the value of "Content-Length:"
    Milliseconds started{0};                 ///< since the crawl's start
    Milliseconds took{0};                    ///< from the first try to the end
    std::uint16_t status = 0;                ///< the HTTP status; 0 for none
    std::uint16_t attempts = 0;              ///< the number of tries so far
    Outcome outcome = Outcome::Queued;
    bool settled = false;  ///< the row will not change again
};

/// No row. The functions that record something ignore an invalid row number.
inline constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

/// Is notified of each change of the report. It must not change the report itself.
class ReportObserver {
  public:
    virtual ~ReportObserver() = default;

    /// A row was appended.
    virtual void RowAdded(std::size_t) {}
    /// A row has changed.
    virtual void RowChanged(std::size_t) {}
    /// A row will not change again. Called once per row, after `RowChanged`.
    virtual void RowSettled(std::size_t) {}
    /// `AlreadyThere` has changed.
    virtual void AlreadyThereChanged() {}
    /// All rows will be removed because a crawl starts. Until this returns, they are still there.
    virtual void AboutToClear() {}
};

/// A server's answer to one try.
struct Answer {
    std::uint16_t status = 0;
    std::uint64_t bytes = 0;  ///< of the body
    std::optional<std::uint64_t> announced = std::nullopt;
    std::string_view detail = {};  ///< the Location for 3xx, the reason phrase for 4xx and 5xx
};

/// One row per address, in the order in which they were found.
///
/// A row ends with its first outcome. Until its connection gets another job, the address may be
/// requested again. A better outcome then replaces a worse one, but one that left a whole answer on
/// disk (saved, moved, error) is final.
class AddressReport {
  public:
    AddressReport();

    // For the crawl.

    /// A crawl starts: removes everything.
    void Clear();
    /// An address was queued. After `Stop` it is unfinished at once.
    void Add(std::string_view address);
    /// A connection takes the newest address off the queue and gives up its old row, `old`. Returns
    /// the row's number; `kNoRow` if the queue is empty.
    std::size_t TakeNewest(std::size_t old = kNoRow);
    /// A try, counted from 1, has failed. There may be another one.
    void NoteFailedTry(std::size_t row, int attempt, std::string_view why);
    /// The address was given up after this many tries, or was never requested.
    void End(std::size_t row, Outcome outcome, int attempts, std::string_view detail = {});
    /// A complete answer has arrived. `NoteWrite` must follow before events run, while the answer's
    /// detail is valid.
    void NoteAnswer(std::size_t row, int attempts, const Answer& answer);
    /// The answer just noted was written, or was not for the reason `why_not`. Ignored if no answer
    /// was noted.
    void NoteWrite(std::size_t row, std::string_view why_not = {});
    /// The crawl has ended: everything queued or under way is unfinished, and all rows are settled.
    void Stop();

    /// The crawl writes or has met a file with this name. Returns false if that is already noted.
    bool NoteFile(std::string_view name) { return files_.insert(HashOf(name)).second; }
    bool HasFile(std::string_view name) const { return files_.contains(HashOf(name)); }
    /// A link was dropped because of a file from an earlier crawl. Called once per file.
    void CountAlreadyThere();

    // For display.

    std::size_t Count() const { return rows_.size(); }
    /// The row with this number, counted from 0. The reference stays valid until `Clear`.
    const ReportRow& Row(std::size_t row) const { return rows_[row]; }
    /// The numbers of the rows that have ended, in the order of their ends.
    const std::vector<std::uint32_t>& Ended() const { return ended_; }
    /// The number of rows with this outcome.
    std::size_t CountOf(Outcome outcome) const {
        return counts_[static_cast<std::size_t>(outcome)];
    }
    /// The number of files from an earlier crawl that kept links from being queued.
    std::size_t AlreadyThere() const { return already_there_; }
    /// Increases with every change, for callers that poll instead of observing.
    std::uint64_t Changes() const { return changes_; }

    /// The observer is notified until it is removed.
    void AddObserver(ReportObserver& observer);
    void RemoveObserver(ReportObserver& observer);

    /// The time since an arbitrary moment: the steady clock, unless a test replaces it.
    std::function<std::chrono::milliseconds()> clock;

  private:
    static std::size_t HashOf(std::string_view name) { return std::hash<std::string_view>()(name); }
    ReportRow* Find(std::size_t row);
    std::string_view Share(std::string_view detail);
    void SetOutcome(std::size_t row, Outcome outcome);
    void EndAs(std::size_t row, Outcome outcome, int attempts, const Answer& answer);
    void Settle(std::size_t row);
    void Tell(void (ReportObserver::*what)(std::size_t), std::size_t row);
    Milliseconds Elapsed() const;

    std::deque<ReportRow> rows_;
    std::array<std::size_t, kOutcomeCount> counts_{};
    std::vector<std::uint32_t> ended_;
    std::vector<std::uint32_t> queued_;  ///< in the queue's order, the newest last
    std::vector<std::size_t> taken_;     ///< not settled yet: about as many as connections
    text::TextStore texts_;
    std::unordered_set<std::string_view> shared_;
    std::unordered_set<std::size_t> files_;  ///< hashes of the names
    std::size_t answered_row_ = kNoRow;      ///< the row whose answer is about to be written
    int answered_attempts_ = 0;
    Answer answer_;
    std::size_t already_there_ = 0;
    std::uint64_t changes_ = 0;
    std::chrono::milliseconds began_{0};
    bool stopped_ = false;
    std::vector<ReportObserver*> observers_;
};

}  // namespace crawl
