#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace search {

/// The terms of a query: words between blanks, and phrases between double quotes, in which blanks
/// count. A quote that is not closed reaches to the end. Every other character is literal. Empty
/// terms and repeated ones are left out.
std::vector<std::string> TermsOf(std::string_view query);

}  // namespace search
