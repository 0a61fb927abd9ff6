#pragma once

#include <optional>
#include <string>
#include <vector>

#include "text/one_based.h"

/// Site setup. This file: the keywords that keep addresses out of the crawl, and their file.
namespace bas_General {

/// The keywords from index 1 on, without gaps; the rest is empty.
extern text::OneBased<std::string, 100> KeywordFilters;

/// Loads `KeywordFilters` from the file. A missing file, or one with more than 100 keywords, gives
/// none.
void LoadKeywordFilters();

/// Clears all entries.
void ClearKeywordFilters();

/// Whether `list` contains `keyword`, ignoring case and blanks at both ends.
bool FilterExists(const std::string& keyword, const std::vector<std::string>& list);

/// Sets the keywords to `list` and writes their file. Drops blank entries and those after the
/// hundredth.
void StoreKeywordFilters(const std::vector<std::string>& list);

/// `edited` plus the keywords that another running copy of the program has added to the file since
/// this one last read or wrote it, and minus those that it has removed; nothing if the file is
/// unchanged.
std::optional<std::vector<std::string>> WithOthersKeywords(const std::vector<std::string>& edited);

}  // namespace bas_General
