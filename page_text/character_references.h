#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace page_text {

/// A character that pages may write by name.
struct NamedCharacter {
    std::string_view name;
    char16_t character;
    /// Also recognized without a ";" after it, even inside a word.
    bool without_semicolon = false;
};

/// The length of the longest name in the table.
inline constexpr std::size_t kLongestCharacterName = 16;

/// The character with exactly this name; null if there is none.
const NamedCharacter* FindNamedCharacter(std::string_view name);

/// Reads the character reference at the start of `markup`, which begins with "&". Appends the
/// character as UTF-8 and returns the reference's length in bytes. If there is none, appends
/// nothing and returns 0.
std::size_t ReadCharacterReference(std::string_view markup, std::string& utf8);

}  // namespace page_text
