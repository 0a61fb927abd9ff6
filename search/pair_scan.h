#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace search {

/// Finds the places where one byte follows another, ignoring bit 0x20, in which the cases of a
/// letter differ. So a place may be reported where the bytes differ, but none is missed. A pair is
/// much rarer than a single byte, which makes a search up to three times as fast.
class PairScan {
  public:
    PairScan(char first, char second);

    /// Starts on another text, which must not change during the search.
    void Begin(std::string_view text);

    /// The first place of the pair at or after `at`, which must not decrease from call to call;
    /// npos if there is none.
    std::size_t From(std::size_t at);

  private:
    static constexpr std::size_t kBlock = 1024;

    void Mark(std::size_t begin);

    char first_, second_;
    std::string_view text_;
    std::size_t begin_ = 0;  ///< where the marked block starts
    std::array<char, kBlock> marks_{};
};

}  // namespace search
