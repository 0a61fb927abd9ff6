#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace search {

/// A character and how many bytes it takes. A byte that is no part of a character stands for
/// itself, as a number that no character has.
struct Character {
    char32_t folded;
    std::size_t length;
};

/// How the bytes of a text are read as characters: UTF-8, or a code page of single bytes.
class Alphabet {
  public:
    /// UTF-8.
    Alphabet();
    /// One character for each byte; `folded` gives the byte that its spellings share.
    explicit Alphabet(const std::array<unsigned char, 256>& folded);

    /// The character that begins at `at`, which is inside the text.
    Character CharacterAt(std::string_view text, std::size_t at) const {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte < 0x80 || !utf8_) return {folded_[byte], 1};
        return WideCharacterAt(text, at);
    }

    /// Where the character begins that ends before `at`, which is above 0.
    std::size_t Before(std::string_view text, std::size_t at) const;

    /// The nearest place at or before `at` where a character begins.
    std::size_t BeginOf(std::string_view text, std::size_t at) const;

    /// All byte sequences that are read as this folded character.
    std::vector<std::string> SpellingsOf(char32_t folded) const;

    /// The most bytes that a character takes.
    std::size_t MostBytes() const { return utf8_ ? 4 : 1; }

  private:
    static Character WideCharacterAt(std::string_view text, std::size_t at);

    bool utf8_;
    std::array<unsigned char, 256> folded_;
};

}  // namespace search
