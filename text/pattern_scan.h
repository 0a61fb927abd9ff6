#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace text {

/// Finds out which of several patterns occur in a text, in one pass however many they are.
///
/// A pattern has at least five characters. Wherever it stands, one of the pairs of characters that
/// begin at every fourth place of the text lies in it, so only those pairs are looked at, and more
/// only around a pair that is in some pattern.
class PatternScan {
  public:
    static constexpr std::size_t kShortest = 5;
    static constexpr std::size_t kMost = 60;
    using Patterns = std::bitset<kMost>;  ///< by index

    /// `patterns` are at most `kMost`; one that is too short counts as occurring everywhere.
    explicit PatternScan(const std::vector<std::string>& patterns);

    /// The patterns that may occur in `subject`: those that do; in a text that is full of pieces of
    /// patterns, for which looking closely at each takes too long, perhaps others too. Those in
    /// `not_asked` are not looked for and count as occurring.
    Patterns MayOccur(std::string_view subject, Patterns not_asked = {}) const;

  private:
    /// A pair of characters and where it stands in a pattern.
    struct Place {
        std::uint16_t pair;
        std::uint8_t pattern;
        std::uint8_t offset;
    };

    bool HasPairIn(std::string_view subject, std::size_t at) const;
    bool IsAround(std::string_view subject, std::size_t pair_at, const Place& place) const;

    std::vector<std::string> patterns_;
    Patterns short_;
    std::vector<Place> places_;              // by pair
    std::vector<std::uint8_t> first_place_;  // for each pair, its first place counted from 1, or 0
};

}  // namespace text
