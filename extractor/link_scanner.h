#pragma once

#include <string>

#include "crawl/list_items.h"
#include "text/consumable_text.h"

/// Link extraction. This file: finding the links of a received page.
namespace bas_Extractor {

/// Finds the links in `page`, makes them absolute with `base_url` (to which it appends a missing
/// "/") and passes each to admission. Rewrites and consumes the page; only the text after the last
/// link is left. Lets events run at every step. They may append to the page; if they empty or
/// replace it, the scan ends and leaves the new text alone.
void ExtractLinks(text::ConsumableText& page, crawl::ListItems& queue_list, std::string& base_url);

}  // namespace bas_Extractor
