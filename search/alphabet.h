#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace search {

/// A character and its length in bytes. A byte that is not part of a character gets a number that
/// no character has.
struct Character {
    char32_t folded;
    std::size_t length;
};

/// How bytes are read as characters: as UTF-8 or as a single-byte code page.
class Alphabet {
  public:
    /// UTF-8.
    Alphabet();
    /// A single-byte code page. `folded` maps each byte to the common form of all its cases.
    explicit Alphabet(const std::array<unsigned char, 256>& folded);

    /// The character that starts at `at`, which must be inside the text.
    Character CharacterAt(std::string_view text, std::size_t at) const {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte < 0x80 || !utf8_) return {folded_[byte], 1};
        return WideCharacterAt(text, at);
    }

    /// The start of the character before `at`, which must be above 0.
    std::size_t Before(std::string_view text, std::size_t at) const;

    /// The last position at or before `at` where a character starts.
    std::size_t BeginOf(std::string_view text, std::size_t at) const;

    /// All byte sequences that fold to this character.
    std::vector<std::string> SpellingsOf(char32_t folded) const;

    /// The length in bytes of the longest character.
    std::size_t MostBytes() const { return utf8_ ? 4 : 1; }

  private:
    static Character WideCharacterAt(std::string_view text, std::size_t at);

    bool utf8_;
    std::array<unsigned char, 256> folded_;
};

}  // namespace search
