#pragma once

#include <string_view>

namespace page_text {

/// Whether a browser reads `page` in quirks mode, the ways of the browsers that the oldest pages
/// were written for: its doctype tells, and so does a page without one.
bool IsInQuirksMode(std::string_view page);

}  // namespace page_text
