#pragma once

#include <vector>

/// Finding pages by their words. This file: letters that differ only in case.
namespace search {

/// The common form of all cases of a character. It is always a single character.
char32_t FoldCase(char32_t c);

/// All characters that fold to `folded`, starting with itself.
std::vector<char32_t> SpellingsOf(char32_t folded);

}  // namespace search
