#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace text {

/// Replacements of single characters, made in one pass: each character becomes a short text of its
/// own wherever it stands. Where they are rare the time is that of searching for them; it never
/// becomes much more than that of going from character to character, however dense they are.
class CharacterMap {
  public:
    /// Every character stays.
    CharacterMap();

    /// Adds a replacement, to be made after those that were added before. False, and nothing added,
    /// when a character would become too long a text.
    bool Add(char character, std::string_view replacement);

    /// What `character` becomes.
    std::string_view Of(char character) const;
    /// The characters that were replaced.
    const std::string& Changed() const { return changed_; }

    /// Whether `subject` has any of them.
    bool Changes(std::string_view subject) const;
    /// Makes the replacements, in place where no character becomes longer.
    void ApplyTo(std::string& subject) const;
    /// The same on a copy, made with room for `spare` characters more.
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
    bool grows_ = false;  // some character becomes longer
};

}  // namespace text
