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
/// Each pattern is found by its anchor, a character of it that is rare in pages. Many patterns
/// share an anchor, so the text is searched for only a few characters and compared in full only
/// where the neighbours fit as well.
class PatternScan {
  public:
    static constexpr std::size_t kShortest = 5;
    static constexpr std::size_t kMost = 60;
    using Patterns = std::bitset<kMost>;  ///< by index

    /// Takes at most `kMost` patterns. One shorter than `kShortest` is not worth searching for and
    /// counts as occurring everywhere.
    explicit PatternScan(const std::vector<std::string>& patterns);

    /// The patterns that may occur in `subject`. No pattern that occurs is missing. A text full of
    /// near matches may yield others, too, because checking each would take too long. Patterns in
    /// `not_asked` are not searched for and count as occurring.
    Patterns MayOccur(std::string_view subject, Patterns not_asked = {}) const;

  private:
    /// A character by which patterns are found, with those patterns.
    struct Anchor {
        char character;
        Patterns patterns;
        /// For each byte beside the anchor, the patterns that it fits. Any byte fits a pattern that
        /// begins or ends at the anchor.
        std::array<Patterns, 256> by_previous, by_next;
    };

    void AddAnchor(std::size_t pattern);
    bool IsAround(std::string_view subject, std::size_t anchor_at, std::size_t pattern) const;
    void Search(std::string_view subject, const Anchor& anchor, Patterns& occur) const;

    std::vector<std::string> patterns_;
    std::vector<std::size_t> offsets_;  // of each pattern's anchor
    Patterns short_;
    std::vector<Anchor> anchors_;
};

}  // namespace text
