#pragma once

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

}  // namespace bas_General
