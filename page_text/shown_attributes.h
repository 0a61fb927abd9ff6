#pragma once

#include "page_text/elements.h"
#include "page_text/inline_style.h"
#include "page_text/open_elements.h"
#include "page_text/tokenizer.h"

namespace page_text {

/// The attributes of a start tag that bear on how its element is shown.
struct ShownAttributes {
    bool hidden = false;   ///< Also an input field of that type.
    bool open = false;     ///< A fold or dialog.
    bool aligned = false;  ///< To the left or to the right.
    InlineStyle style;
};

ShownAttributes ReadAttributes(const Tag& tag);

/// How an element is displayed before its style attribute is looked at.
Display OwnDisplay(ElementId id, const ShownAttributes& attributes);

/// What becomes of its `own` display by its style attribute.
Display StyledDisplay(Display own, const InlineStyle& style);

/// Changes how the text in an element is shown by its style attribute.
void ApplyStyle(const InlineStyle& style, TextState& state);

}  // namespace page_text
