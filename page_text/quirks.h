#pragma once

#include <string_view>

namespace page_text {

/// Whether a browser renders `page` in quirks mode, that is, like a browser of the 1990s. The
/// doctype decides; a page without one is in quirks mode.
bool IsInQuirksMode(std::string_view page);

}  // namespace page_text
