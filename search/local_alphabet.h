#pragma once

#include "search/alphabet.h"

namespace search {

/// How the extract's text is read: as UTF-8, but on Windows in the system's code page.
Alphabet LocalAlphabet();

}  // namespace search
