#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace page_text {

/// A character that pages may write by its name.
struct NamedCharacter {
    std::string_view name;
    char16_t character;
    /// Read as the character also where no ";" follows, even inside a word.
    bool without_semicolon = false;
};

/// The longest name in the table.
inline constexpr std::size_t kLongestCharacterName = 16;

/// The character of exactly this name; null when there is none.
const NamedCharacter* FindNamedCharacter(std::string_view name);

/// Reads the character reference that `markup`, which begins with "&", begins with: appends what it
/// stands for as UTF-8 and gives its length in bytes. 0, and nothing is appended, when it is none.
std::size_t ReadCharacterReference(std::string_view markup, std::string& utf8);

}  // namespace page_text
