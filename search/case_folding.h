#pragma once

#include <vector>

/// Finding pages by the words in them. This file: letters that differ in case alone.
namespace search {

/// The one form that all spellings of a character share, whatever their case. One character stays
/// one character.
char32_t FoldCase(char32_t c);

/// Every character that folds to `folded`, itself first.
std::vector<char32_t> SpellingsOf(char32_t folded);

}  // namespace search
