#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace page_text {

/// Converts `bytes` from `charset`, as the system's converter names it, to UTF-8. Invalid bytes
/// become the replacement character. Returns nothing if the system does not know the encoding.
std::optional<std::string> ConvertToUtf8(std::string_view bytes, const std::string& charset);

/// `utf8` converted to the local 8-bit encoding.
std::string ToLocalEncoding(std::string utf8);

}  // namespace page_text
