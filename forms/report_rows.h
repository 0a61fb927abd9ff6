#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "crawl/report.h"
#include "forms/sliced_sort.h"

namespace ui {

/// The columns of the report's table, in order.
enum class ReportColumn { Address, Outcome, Status, Bytes, Announced, Tries, Seconds, Detail };
inline constexpr int kReportColumnCount = 8;

/// Which rows of the report are shown, and in which order.
struct ReportView {
    std::string text = {};                       ///< part of an address or detail, in any case
    std::optional<crawl::Outcome> outcome = {};  ///< show only this outcome
    std::optional<ReportColumn> sorted_by = {};  ///< if not set, in the order in which they ended
    bool descending = false;

    bool operator==(const ReportView&) const = default;
};

/// The ended addresses of the report, filtered and sorted for a view. There may be a million, so
/// they are searched and sorted in small steps, and the previous rows remain until that is done. A
/// view without filter and sorting is always up to date and costs nothing.
class ReportRows {
  public:
    /// The report must outlive this object.
    explicit ReportRows(const crawl::AddressReport& report) : report_(report) {}

    /// Starts to search for the rows of `view`.
    void SetView(ReportView view);
    const ReportView& View() const { return view_; }

    std::size_t Count() const { return shows_all_ ? report_.Ended().size() : shown_.size(); }
    /// The number in the report of the row shown at `index`.
    std::size_t RowAt(std::size_t index) const {
        return shows_all_ ? report_.Ended()[index] : shown_[index];
    }

    /// Whether the rows are out of date because the report has changed.
    bool IsStale() const { return !shows_all_ && seen_changes_ != report_.Changes(); }

    /// Starts a new search. Drops an unfinished one.
    void BeginUpdate();
    bool IsUpdating() const { return updating_; }
    /// Processes a few hundred rows. Returns true when the rows have been found; `TakeOver` then
    /// shows them.
    bool ContinueUpdate();
    /// The number of rows at the start that stay the same.
    std::size_t CountThatStays() const;
    void TakeOver();

    /// Drops all rows, because the report will be cleared.
    void Clear();

  private:
    struct Item {
        std::uint64_t key;  ///< compared first
        std::uint32_t row;
    };
    struct Before {
        const crawl::AddressReport* report;
        ReportColumn column;
        bool operator()(const Item& a, const Item& b) const;
    };

    bool WantsAll() const { return view_ == ReportView(); }
    bool Matches(const crawl::ReportRow& row) const;
    void LookThroughSome();
    void KeySome();
    void Found(const std::vector<Item>& items);

    const crawl::AddressReport& report_;
    ReportView view_;
    std::string sought_;  ///< the view's text, lower-cased
    bool shows_all_ = true;
    std::vector<std::uint32_t> shown_;
    std::uint64_t seen_changes_ = 0;

    bool updating_ = false;
    std::size_t looked_through_ = 0;
    std::size_t keyed_ = 0;
    std::size_t common_ = 0;  ///< the length of the common start of all addresses found
    std::vector<Item> items_;
    std::optional<SlicedSort<Item, Before>> sort_;
    std::vector<std::uint32_t> next_;  ///< the rows to be shown next
};

}  // namespace ui
