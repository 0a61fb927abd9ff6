#pragma once

#include <string>

#include "crawl/list_items.h"
#include "text/consumable_text.h"

/// Link extraction. This file: finding the links of a received page.
namespace bas_Extractor {

/// Finds the links in `page`, makes them absolute against `base_url` (which gains a final "/") and
/// hands each to admission. The page is rewritten and consumed; what is left is what followed the
/// last link. Events run at every step, and may append to the page; when they empty or replace it,
/// the scan ends and leaves the new text alone.
void ExtractLinks(text::ConsumableText& page, crawl::ListItems& queue_list, std::string& base_url);

}  // namespace bas_Extractor
