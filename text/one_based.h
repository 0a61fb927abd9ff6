#pragma once

#include <array>
#include <cassert>
#include <cstddef>

namespace text {

/// A fixed array with indices from 1 to N, like the numbers of connections and filters.
template <typename T, int N>
class OneBased {
  public:
    static constexpr int kCount = N;

    /// Whether `index` is valid.
    static constexpr bool Has(int index) { return index >= 1 && index <= N; }

    T& operator[](int index) {
        assert(Has(index));
        return items_[static_cast<std::size_t>(index - 1)];
    }
    const T& operator[](int index) const {
        assert(Has(index));
        return items_[static_cast<std::size_t>(index - 1)];
    }

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

  private:
    std::array<T, N> items_{};
};

}  // namespace text
