#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace search {

/// The terms of a query: words separated by blanks, and phrases in double quotes, which may contain
/// blanks. An unclosed quote extends to the end. Every other character is literal. Empty and
/// repeated terms are dropped.
std::vector<std::string> TermsOf(std::string_view query);

}  // namespace search
