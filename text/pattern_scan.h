#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace text {

/// Finds out which of several patterns occur in a text.
///
/// A pattern is found by one of its characters, one that is rare in pages. Many patterns have the
/// same, so a text is searched for a few characters, and looked at closely only where the
/// neighbours fit, too.
class PatternScan {
  public:
    static constexpr std::size_t kShortest = 5;
    static constexpr std::size_t kMost = 60;
    using Patterns = std::bitset<kMost>;  ///< by index

    /// `patterns` are at most `kMost`; one that is shorter than `kShortest` is not worth the
    /// trouble and counts as occurring everywhere.
    explicit PatternScan(const std::vector<std::string>& patterns);

    /// The patterns that may occur in `subject`: those that do; in a text that is full of pieces of
    /// patterns, for which looking closely at each takes too long, perhaps others too. Those in
    /// `not_asked` are not looked for and count as occurring.
    Patterns MayOccur(std::string_view subject, Patterns not_asked = {}) const;

  private:
    /// A character by which patterns are found.
    struct Anchor {
        char character;
        Patterns patterns;
        /// The patterns that a neighbour on this side fits; those that end here fit any.
        std::array<Patterns, 256> by_previous, by_next;
    };

    void AddAnchor(std::size_t pattern);
    bool IsAround(std::string_view subject, std::size_t anchor_at, std::size_t pattern) const;
    void Search(std::string_view subject, const Anchor& anchor, Patterns& occur) const;

    std::vector<std::string> patterns_;
    std::vector<std::size_t> offsets_;  // of its anchor, for each pattern
    Patterns short_;
    std::vector<Anchor> anchors_;
};

}  // namespace text
