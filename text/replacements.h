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

/// Literal replacements that are made in a whole text, each as `ReplaceAllIn` makes it and one
/// after the other, so that a later one may find what an earlier one has made.
///
/// Most texts hold few of the patterns or none, and large ones are gone through while the window
/// waits. So one pass finds out which patterns occur at all, and only those get a pass of their
/// own; when one has been replaced, those that it can have made are looked for again. Neighbouring
/// replacements of single characters are made together.
class Replacements {
  public:
    struct Rule {
        std::string pattern;  ///< not empty
        std::string replacement;
    };

    /// For at most `PatternScan::kMost` rules.
    explicit Replacements(const std::vector<Rule>& rules);

    void ApplyTo(std::string& subject) const;

    /// The same on a copy, made only when it is needed: nothing when no pattern is found.
    std::optional<std::string> AppliedTo(std::string_view subject) const;

  private:
    /// One replacement, or several neighbouring ones of single characters.
    struct Step {
        Rule rule;
        std::unique_ptr<CharacterMap> characters;  ///< in place of the rule

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
    PatternScan scan_;  // of the steps' patterns; those of single characters are always tried
};

}  // namespace text
