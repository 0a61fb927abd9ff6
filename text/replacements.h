#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/character_map.h"
#include "text/pattern_scan.h"

namespace text {

/// A sequence of literal replacements. Each one works like `ReplaceAllIn` on the whole text, one
/// after the other, so a later one finds what an earlier one has made.
///
/// Most texts contain few of the patterns or none, and the window waits while a large one is
/// processed. So one scan finds out which patterns occur at all, and only those get a pass of their
/// own. After a replacement, only the patterns that it can have created are searched for again.
/// Adjacent replacements of single characters share one pass.
class Replacements {
  public:
    struct Rule {
        std::string pattern;  ///< not empty
        std::string replacement;
    };

    /// Takes at most `PatternScan::kMost` rules.
    explicit Replacements(const std::vector<Rule>& rules);

    void ApplyTo(std::string& subject) const;

    /// The same on a copy; nothing, and no copy, if no pattern occurs.
    std::optional<std::string> AppliedTo(std::string_view subject) const;

  private:
    /// One replacement, or several adjacent ones of single characters.
    struct Step {
        Rule rule;
        std::unique_ptr<CharacterMap> characters;  ///< used instead of `rule` if set

        bool FindsAnyIn(std::string_view subject) const;
        bool ApplyTo(std::string& subject) const;
        std::string AppliedTo(std::string_view subject) const;
        bool CanMake(std::string_view pattern) const;
    };
    using Steps = std::vector<Step>;
    using Indices = PatternScan::Patterns;

    static Steps StepsFor(const std::vector<Rule>& rules);
    static std::vector<std::string> PatternsOf(const Steps& steps);
    Indices MadeBy(std::size_t step) const;
    void ApplyFrom(std::size_t first, Indices may_find, Indices made, std::string& subject) const;

    Steps steps_;
    PatternScan scan_;  // of the steps' patterns; single characters are too short and always tried
};

}  // namespace text
