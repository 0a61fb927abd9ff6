#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace page_text {

/// Finds the rows of a table by `name`. The table is sorted by name.
template <typename Row>
class NameTable {
  public:
    template <std::size_t N>
    constexpr explicit NameTable(const Row (&rows)[N]) : rows_(rows) {
        std::size_t row = 0;
        for (std::size_t first = 0; first < kCharacters; ++first) {
            begins_[first] = static_cast<std::uint16_t>(row);
            while (row < N && static_cast<unsigned char>(rows[row].name[0]) == first) {
                ++row;
            }
        }
        begins_[kCharacters] = static_cast<std::uint16_t>(row);
    }

    /// The index of the row with exactly this name; nothing if there is none.
    constexpr std::optional<std::size_t> Find(std::string_view name) const {
        const std::size_t first = name.empty() ? kCharacters : static_cast<unsigned char>(name[0]);
        if (first >= kCharacters) return std::nullopt;
        // Few names share a first character, and most of those differ in length.
        for (std::size_t row = begins_[first]; row < begins_[first + 1]; ++row) {
            if (rows_[row].name == name) return row;
        }
        return std::nullopt;
    }

  private:
    static constexpr std::size_t kCharacters = 128;

    const Row* rows_;
    std::array<std::uint16_t, kCharacters + 1> begins_{};  // indexed by a name's first character
};

}  // namespace page_text
