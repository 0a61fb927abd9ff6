#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "crawl/report.h"
#include "forms/sliced_sort.h"

namespace ui {

/// What a table of the report has in its columns, in their order.
enum class ReportColumn { Address, Outcome, Status, Bytes, Announced, Tries, Seconds, Detail };
inline constexpr int kReportColumnCount = 8;

/// Which rows of the report are shown, and in which order.
struct ReportView {
    std::string text = {};                       ///< occurs in address or detail, whatever its case
    std::optional<crawl::Outcome> outcome = {};  ///< the one outcome that is shown
    std::optional<ReportColumn> sorted_by = {};  ///< else in the order in which they ended
    bool descending = false;

    bool operator==(const ReportView&) const = default;
};

/// The addresses of the report that have ended, as a view wants them. There may be a million: they
/// are looked through and sorted a little at a time, and until that is done the rows of the last
/// time stay. A view that leaves out and sorts nothing is always up to date and costs nothing.
class ReportRows {
  public:
    /// The report must outlive this.
    explicit ReportRows(const crawl::AddressReport& report) : report_(report) {}

    /// Begins to find the rows of `view`.
    void SetView(ReportView view);
    const ReportView& View() const { return view_; }

    std::size_t Count() const { return shows_all_ ? report_.Ended().size() : shown_.size(); }
    /// The number in the report of the row that is shown at `index`.
    std::size_t RowAt(std::size_t index) const {
        return shows_all_ ? report_.Ended()[index] : shown_[index];
    }

    /// Whether the report has changed since the rows were found, in a way that they do not follow
    /// by themselves.
    bool IsStale() const { return !shows_all_ && seen_changes_ != report_.Changes(); }

    /// Begins to find the rows anew. What was begun before is dropped.
    void BeginUpdate();
    bool IsUpdating() const { return updating_; }
    /// Does some hundred rows of that. True when they are found, for `TakeOver` to show them.
    bool ContinueUpdate();
    /// How many rows at the beginning stay what they are.
    std::size_t CountThatStays() const;
    void TakeOver();

    /// The report was cleared.
    void Clear();

  private:
    struct Item {
        std::uint64_t key;  ///< decides first
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
    std::size_t common_ = 0;  ///< the length of what all addresses found begin with
    std::vector<Item> items_;
    std::optional<SlicedSort<Item, Before>> sort_;
    std::vector<std::uint32_t> next_;  ///< what will be shown
};

}  // namespace ui
