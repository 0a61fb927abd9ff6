#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>

namespace crawl {

/// What a list box holds, as bytes. The control that shows it looks only at the rows on screen, so
/// appending, taking the last and counting cost the same at ten items and at a million.
class ListItems {
  public:
    void AddItem(std::string item) {
        items_.push_back(std::move(item));
        Changed();
    }
    /// Removes the last item; nothing when there is none.
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
    /// The item at `index`, counted from 0. Valid until the list next changes.
    const std::string& Item(std::size_t index) const { return items_[index]; }

    /// Told after every change; the control's repaint request. It must not change the list.
    std::function<void()> on_change;

  private:
    void Changed() const {
        if (on_change) on_change();
    }
    std::deque<std::string> items_;
};

}  // namespace crawl
