#pragma once

#include "page_text/elements.h"
#include "page_text/tokenizer.h"

namespace page_text {

/// How the element that `tag` begins is displayed, by its name and its attributes.
Display DisplayOf(ElementId id, const Tag& tag);

}  // namespace page_text
