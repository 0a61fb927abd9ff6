#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace text {

/// Replaces single characters by short texts, all in one pass. If they are rare, the cost is that
/// of searching for them; however dense they are, it is never much more than that of mapping every
/// character.
class CharacterMap {
  public:
    /// Replaces nothing.
    CharacterMap();

    /// Adds a replacement that applies to the result of those added before. Returns false and adds
    /// nothing if the text of a character would become too long.
    bool Add(char character, std::string_view replacement);

    /// What `character` becomes.
    std::string_view Of(char character) const;
    /// The characters that are replaced.
    const std::string& Changed() const { return changed_; }

    /// Whether `subject` contains any of them.
    bool Changes(std::string_view subject) const;
    /// Makes the replacements; in place if no character becomes longer.
    void ApplyTo(std::string& subject) const;
    /// The same on a copy with room for `spare` more characters.
    std::string AppliedTo(std::string_view subject, std::size_t spare = 0) const;

  private:
    static constexpr std::size_t kLongest = 4;
    using Short = std::array<char, kLongest>;

    std::size_t Growth(std::string_view subject) const;
    char* Write(std::string_view subject, char* out) const;
    char* WriteEach(std::string_view subject, char* out) const;

    std::array<Short, 256> texts_{};
    std::array<std::uint8_t, 256> sizes_;
    std::string changed_;
    bool grows_ = false;  // at least one character becomes longer
};

}  // namespace text
