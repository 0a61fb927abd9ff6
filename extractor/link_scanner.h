#pragma once

#include <string>

#include "platform/list_items.h"
#include "text/consumable_text.h"

/// Link extraction. This file: finding the links of a received page.
namespace bas_Extractor {

/// Finds the links in `text`, makes them absolute against `base_url` (which gains a final "/") and
/// hands each to admission. The text is rewritten and consumed; what is left is what followed the
/// last link. Events run at every step, and may append to `text` or empty it.
void ExtractLinks(text::ConsumableText& text, platform::ListItems& queue_list,
                  std::string& base_url);

}  // namespace bas_Extractor
