#pragma once

#include <optional>
#include <string>
#include <vector>

#include "text/one_based.h"

/// Site setup. This file: the keywords that keep addresses out of the crawl, and their file.
namespace bas_General {

/// The keywords from index 1 upwards without gaps; the rest is empty.
extern text::OneBased<std::string, 100> KeywordFilters;

/// Fills `KeywordFilters` from the file. A missing file gives none, and so does one with more than
/// 100 keywords.
void LoadKeywordFilters();

/// Empties all entries.
void ClearKeywordFilters();

/// Whether `list` holds `keyword`, case and blanks around it aside.
bool FilterExists(const std::string& keyword, const std::vector<std::string>& list);

/// Makes `list` the keywords and writes their file; entries past the hundredth are not kept.
void StoreKeywordFilters(const std::vector<std::string>& list);

/// `edited` with the keywords that another running copy of the program has stored since this one
/// last read or stored them, and without those that it has removed; nothing when none has.
std::optional<std::vector<std::string>> WithOthersKeywords(const std::vector<std::string>& edited);

}  // namespace bas_General
