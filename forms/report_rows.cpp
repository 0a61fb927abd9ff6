#include "forms/report_rows.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "text/ascii.h"
#include "text/text.h"

namespace ui {

namespace {

constexpr std::size_t kAtATime = 500;

/// Whether `subject` contains `sought` in any case. `sought` is lower-cased.
bool ContainsInAnyCase(std::string_view subject, std::string_view sought) {
    return sought.empty() || !std::ranges::search(subject, sought, {}, text::LowerLetter).empty();
}

/// The eight bytes from `from` on as a number that compares like the text.
std::uint64_t KeyOf(std::string_view text, std::size_t from) {
    std::uint64_t key = 0;
    for (std::size_t i = from; i < from + 8; ++i) {
        const unsigned char byte = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
        key = key << 8 | byte;
    }
    return key;
}

std::uint64_t KeyOf(const crawl::ReportRow& row, ReportColumn column, std::size_t common) {
    switch (column) {
        case ReportColumn::Address:
            return KeyOf(row.address, common);
        case ReportColumn::Outcome:
            return static_cast<std::uint64_t>(row.outcome);
        case ReportColumn::Status:
            return row.status;
        case ReportColumn::Bytes:
            return row.bytes;
        case ReportColumn::Announced:
            return row.announced ? *row.announced + 1 : 0;
        case ReportColumn::Tries:
            return row.attempts;
        case ReportColumn::Seconds:
            return row.took.count();
        case ReportColumn::Detail:
            return KeyOf(row.detail, 0);
    }
    return 0;
}

/// The full text of a column whose key contains only a part of it.
std::string_view TextOf(const crawl::ReportRow& row, ReportColumn column) {
    if (column == ReportColumn::Address) return row.address;
    return column == ReportColumn::Detail ? row.detail : std::string_view();
}

std::size_t CommonStart(std::string_view a, std::string_view b) {
    return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

}  // namespace

bool ReportRows::Before::operator()(const Item& a, const Item& b) const {
    if (a.key != b.key) return a.key < b.key;
    const std::string_view text_a = TextOf(report->Row(a.row), column);
    const std::string_view text_b = TextOf(report->Row(b.row), column);
    // Rows with the same detail share its text.
    return text_a.data() != text_b.data() && text_a < text_b;
}

void ReportRows::SetView(ReportView view) {
    view_ = std::move(view);
    sought_ = text::LowerCase(view_.text);
    BeginUpdate();
}

void ReportRows::BeginUpdate() {
    updating_ = true;
    looked_through_ = keyed_ = common_ = 0;
    items_.clear();
    sort_.reset();
    next_.clear();
    seen_changes_ = report_.Changes();
}

bool ReportRows::ContinueUpdate() {
    if (!updating_) return false;
    if (WantsAll()) {
        updating_ = false;
    } else if (sort_) {
        if (!sort_->Step()) Found(sort_->Take());
    } else if (looked_through_ < report_.Ended().size()) {
        LookThroughSome();
    } else if (view_.sorted_by && keyed_ < items_.size()) {
        KeySome();
    } else if (view_.sorted_by) {
        sort_.emplace(std::exchange(items_, {}), Before{&report_, *view_.sorted_by});
    } else {
        Found(items_);
    }
    return !updating_;
}

std::size_t ReportRows::CountThatStays() const {
    const auto& now = shows_all_ ? report_.Ended() : shown_;
    const auto& then = WantsAll() ? report_.Ended() : next_;
    return static_cast<std::size_t>(std::ranges::mismatch(now, then).in1 - now.begin());
}

void ReportRows::TakeOver() {
    shows_all_ = WantsAll();
    shown_ = std::exchange(next_, {});
}

void ReportRows::Clear() {
    shown_.clear();
    BeginUpdate();
}

bool ReportRows::Matches(const crawl::ReportRow& row) const {
    if (view_.outcome && row.outcome != *view_.outcome) return false;
    return ContainsInAnyCase(row.address, sought_) || ContainsInAnyCase(row.detail, sought_);
}

void ReportRows::LookThroughSome() {
    const auto& ended = report_.Ended();
    const std::size_t end = std::min(looked_through_ + kAtATime, ended.size());
    for (; looked_through_ < end; ++looked_through_) {
        const std::uint32_t number = ended[looked_through_];
        const crawl::ReportRow& row = report_.Row(number);
        if (!Matches(row)) continue;
        if (items_.empty()) {
            common_ = row.address.size();
        } else {
            const std::string_view first = report_.Row(items_.front().row).address;
            common_ = CommonStart(first.substr(0, common_), row.address);
        }
        items_.push_back({0, number});
    }
}

void ReportRows::KeySome() {
    const std::size_t end = std::min(keyed_ + kAtATime, items_.size());
    for (; keyed_ < end; ++keyed_) {
        Item& item = items_[keyed_];
        item.key = KeyOf(report_.Row(item.row), *view_.sorted_by, common_);
    }
}

void ReportRows::Found(const std::vector<Item>& items) {
    next_.resize(items.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        next_[view_.descending ? items.size() - 1 - i : i] = items[i].row;
    updating_ = false;
    items_ = {};
    sort_.reset();
}

}  // namespace ui
