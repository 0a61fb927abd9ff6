#pragma once

#include <cstddef>
#include <string>

#include "platform/files.h"

namespace cli {

/// A search ordered on the command line.
struct SearchOrder {
    std::string words;
    std::string folder;      ///< path text
    std::size_t limit = 50;  ///< the most pages to print
};

/// Exit codes of a search, besides `kExitReaderGone`.
inline constexpr int kExitFound = 0;
inline constexpr int kExitNoExtract = 1;
inline constexpr int kExitNotFound = 5;

/// Prints a line for each page that contains the words, those with the most matches first: the
/// number of matches, the recorded path, and the words around the first match, separated by tabs.
/// Returns the exit code.
int RunSearch(const SearchOrder& order, const platform::Files& files);

}  // namespace cli
