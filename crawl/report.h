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

/// What became of each address that a crawl took on. The engine, the link extraction and the mirror
/// write it down where they learn it; nobody decides anything by it.
namespace crawl {

enum class Outcome : std::uint8_t {
    Queued,
    UnderWay,
    Saved,       ///< answered, and the file is on disk
    Moved,       ///< the same, with a status of 3xx; the detail is where to
    Error,       ///< the same, with a status of 4xx or 5xx; the detail is the status line's words
    Short,       ///< saved, but fewer bytes came than were announced
    Unanswered,  ///< nothing was saved after the last try; the detail is why
    NotWritten,  ///< answered, but there is no file; the detail is why
    TooLarge,    ///< given up for the memory
    NotAsked,    ///< would climb above the site's root
    Unfinished,  ///< queued or under way when the crawl was stopped
};
inline constexpr std::size_t kOutcomeCount = 11;

/// An outcome as people read it: "saved", "not written".
std::string_view NameOf(Outcome outcome);

/// Whether it is neither queued nor under way any more.
constexpr bool HasEnded(Outcome outcome) {
    return outcome > Outcome::UnderWay;
}

/// A time in few bytes; up to 49 days.
using Milliseconds = std::chrono::duration<std::uint32_t, std::milli>;

/// One address. Its texts stay until the report is cleared.
struct ReportRow {
    std::string_view address;  ///< as it stands in log.txt; the first one as it was asked for
    std::string_view detail;   ///< see `Outcome`; while under way, why the last try failed
    std::uint64_t bytes = 0;   ///< of the body, as they came
    std::optional<std::uint64_t> announced;  ///< what "Content-Length:" said
    Milliseconds started{0};                 ///< since the crawl's start
    Milliseconds took{0};                    ///< from the first try on
    std::uint16_t status = 0;                ///< of HTTP; 0 when there was none
    std::uint16_t attempts = 0;              ///< how often it was asked for until it ended
    Outcome outcome = Outcome::Queued;
    bool settled = false;  ///< it stays as it is
};

/// Names no row. Everything that takes a row's number passes over one that there is not.
inline constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

/// Whoever watches the report. It is told after each change and must not make one.
class ReportObserver {
  public:
    virtual ~ReportObserver() = default;

    /// A row was appended.
    virtual void RowAdded(std::size_t) {}
    /// A row says something else than before.
    virtual void RowChanged(std::size_t) {}
    /// A row will not change any more. Comes once for each, after `RowChanged`.
    virtual void RowSettled(std::size_t) {}
    /// More files were found to be there already.
    virtual void AlreadyThereChanged() {}
    /// All rows have gone: a crawl begins.
    virtual void Cleared() {}
};

/// What a server answered to one try.
struct Answer {
    std::uint16_t status = 0;
    std::uint64_t bytes = 0;  ///< of the body
    std::optional<std::uint64_t> announced = std::nullopt;
    std::string_view detail = {};  ///< the Location of 3xx, the words of 4xx and 5xx
};

/// One row for each address, in the order in which they were found.
///
/// A row ends with its first outcome. While its connection has no other job, it may be asked for
/// again: then a better outcome replaces a worse one, but one that left a whole answer on disk
/// (saved, moved, error) stays.
class AddressReport {
  public:
    AddressReport();

    // What the crawl tells.

    /// A crawl begins: forgets everything.
    void Clear();
    /// An address was queued. After `Stop` it counts as unfinished at once.
    void Add(std::string_view address);
    /// A connection takes the newest address of the queue and gives up `old`, the one that it had.
    /// The number of the row; `kNoRow` when none is queued.
    std::size_t TakeNewest(std::size_t old = kNoRow);
    /// A try, counted from 1, failed. There may be another one.
    void NoteFailedTry(std::size_t row, int attempt, std::string_view why);
    /// The address was given up after so many tries, or not asked for at all.
    void End(std::size_t row, Outcome outcome, int attempts, std::string_view detail = {});
    /// An answer has come whole; `NoteWrite` must follow before any event runs, while the answer's
    /// detail is still there.
    void NoteAnswer(std::size_t row, int attempts, const Answer& answer);
    /// The answer just noted was written, or why it was not; passed over when there is none.
    void NoteWrite(std::size_t row, std::string_view why_not = {});
    /// The crawl has ended: what is queued or under way is unfinished, and all rows are settled.
    void Stop();

    /// The crawl makes a file of this name, or has met it. False when it is noted already.
    bool NoteFile(std::string_view name) { return files_.insert(HashOf(name)).second; }
    bool HasFile(std::string_view name) const { return files_.contains(HashOf(name)); }
    /// A link was dropped for a file of an earlier crawl, the first one for that file.
    void CountAlreadyThere();

    // What there is to see.

    std::size_t Count() const { return rows_.size(); }
    /// The row of this number, counted from 0. It stays where it is until `Clear`.
    const ReportRow& Row(std::size_t row) const { return rows_[row]; }
    /// The numbers of the rows that have ended, in the order in which they did.
    const std::vector<std::uint32_t>& Ended() const { return ended_; }
    /// How many rows have this outcome.
    std::size_t CountOf(Outcome outcome) const {
        return counts_[static_cast<std::size_t>(outcome)];
    }
    /// How many different files of an earlier crawl kept links from being queued.
    std::size_t AlreadyThere() const { return already_there_; }
    /// Goes up with every change: for whoever looks now and then instead of observing.
    std::uint64_t Changes() const { return changes_; }

    /// An observer is told of changes until it is removed.
    void AddObserver(ReportObserver& observer);
    void RemoveObserver(ReportObserver& observer);

    /// The time since any moment; the steady clock's unless a test gives another one.
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
    std::vector<std::uint32_t> queued_;  ///< as the queue has them, the newest at the end
    std::vector<std::size_t> taken_;     ///< not settled yet: hardly more than connections
    text::TextStore texts_;
    std::unordered_set<std::string_view> shared_;
    std::unordered_set<std::size_t> files_;  ///< hashes of their names
    std::size_t answered_row_ = kNoRow;      ///< whose answer is about to be written
    int answered_attempts_ = 0;
    Answer answer_;
    std::size_t already_there_ = 0;
    std::uint64_t changes_ = 0;
    std::chrono::milliseconds began_{0};
    bool stopped_ = false;
    std::vector<ReportObserver*> observers_;
};

}  // namespace crawl
