#pragma once

#include "search/alphabet.h"

namespace search {

/// How the text of the extract is read: UTF-8, but on Windows the system's code page.
Alphabet LocalAlphabet();

}  // namespace search
