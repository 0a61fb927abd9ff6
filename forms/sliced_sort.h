#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace ui {

/// A stable merge sort in small steps, to be done between events. No item is lost even if `Less` is
/// inconsistent or changes its results meanwhile.
template <typename Item, typename Less>
class SlicedSort {
  public:
    SlicedSort(std::vector<Item> items, Less less)
        : items_(std::move(items)), sorted_(items_.size()), less_(std::move(less)) {}

    /// Processes a few hundred items. Returns false if everything was sorted already.
    bool Step() {
        if (run_begin_ < items_.size()) {
            SortNextRun();
        } else if (width_ < items_.size()) {
            MergeSome();
        } else {
            return false;
        }
        return true;
    }

    /// The items, sorted once `Step` has returned false.
    std::vector<Item> Take() { return std::move(items_); }

  private:
    static constexpr std::size_t kRun = 256;

    void SortNextRun() {
        const auto begin = items_.begin() + static_cast<std::ptrdiff_t>(run_begin_);
        run_begin_ = std::min(run_begin_ + kRun, items_.size());
        std::stable_sort(begin, items_.begin() + static_cast<std::ptrdiff_t>(run_begin_), less_);
    }

    /// Merges some items of two adjacent runs of `width_` items. `to_` items of the whole are done.
    void MergeSome() {
        for (std::size_t n = 0; n < kRun && to_ < items_.size(); ++n) {
            if (to_ == pair_end_) BeginPair();
            const bool right =
                left_ == middle_ || (right_ < pair_end_ && less_(items_[right_], items_[left_]));
            sorted_[to_++] = items_[right ? right_++ : left_++];
        }
        if (to_ < items_.size()) return;
        items_.swap(sorted_);
        width_ *= 2;
        to_ = pair_end_ = 0;
    }

    void BeginPair() {
        left_ = pair_end_;
        right_ = middle_ = std::min(left_ + width_, items_.size());
        pair_end_ = std::min(middle_ + width_, items_.size());
    }

    std::vector<Item> items_;
    std::vector<Item> sorted_;
    Less less_;
    std::size_t run_begin_ = 0;
    std::size_t width_ = kRun;
    std::size_t to_ = 0;
    std::size_t left_ = 0, middle_ = 0, right_ = 0, pair_end_ = 0;
};

}  // namespace ui
