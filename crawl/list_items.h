#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>

namespace crawl {

/// The items of a list box, as bytes. The control looks only at the visible rows, so appending,
/// removing the last item and counting cost the same for ten items and for a million.
class ListItems {
  public:
    void AddItem(std::string item) {
        items_.push_back(std::move(item));
        Changed();
    }
    /// Removes the last item, if any.
    void RemoveLast() {
        if (items_.empty()) return;
        items_.pop_back();
        Changed();
    }
    void Clear() {
        items_.clear();
        Changed();
    }
    std::size_t Count() const { return items_.size(); }
    bool Empty() const { return items_.empty(); }
    /// The item at `index`, counted from 0. Valid until the list changes.
    const std::string& Item(std::size_t index) const { return items_[index]; }

    /// Called after every change, to repaint the control. It must not change the list.
    std::function<void()> on_change;

  private:
    void Changed() const {
        if (on_change) on_change();
    }
    std::deque<std::string> items_;
};

}  // namespace crawl
