#pragma once

#include <optional>
#include <string_view>

#include "page_text/elements.h"
#include "page_text/text_assembler.h"

namespace page_text {

/// What a style attribute says about how an element stands in the text; unset where it says
/// nothing.
struct InlineStyle {
    std::optional<Display> display;
    std::optional<bool> visible;
    std::optional<Spaces> spaces;
    bool out_of_line = false;  ///< Floats or is placed by itself: a block, whatever it was.
};

/// Reads the value of a style attribute.
InlineStyle ParseInlineStyle(std::string_view declarations);

}  // namespace page_text
