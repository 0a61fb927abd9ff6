#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "search/term.h"

namespace search {

/// The length of the longest snippet in characters.
inline constexpr std::size_t kSnippetCharacters = 160;

/// The number of bytes before and after a match that suffice for its snippet.
inline constexpr std::size_t kSnippetReach = 4 * kSnippetCharacters;

/// The words around `match` in `text`, limited to its line, with control characters replaced by
/// blanks. A word that is longer than a snippet is cut.
std::string SnippetAround(std::string_view text, Span match, const Alphabet& alphabet);

/// The whole words that contain `match`, without surrounding blanks and punctuation. A browser only
/// finds whole words.
std::string WholeWords(std::string_view text, Span match, const Alphabet& alphabet);

}  // namespace search
