#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "search/term.h"

namespace search {

/// The most characters of a snippet.
inline constexpr std::size_t kSnippetCharacters = 160;

/// How many bytes before and after a match are enough for its snippet.
inline constexpr std::size_t kSnippetReach = 4 * kSnippetCharacters;

/// The words around `match` in `text`, as far as its line reaches, with a blank for each control
/// character. A word that is longer than a snippet is cut.
std::string SnippetAround(std::string_view text, Span match, const Alphabet& alphabet);

}  // namespace search
