#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace page_text {

/// `bytes`, which are in the encoding that the system's converter knows as `charset`, as UTF-8;
/// what is no character becomes the replacement character. Nothing when the system does not know
/// it.
std::optional<std::string> ConvertToUtf8(std::string_view bytes, const std::string& charset);

/// `utf8` in the local 8-bit encoding.
std::string ToLocalEncoding(std::string utf8);

}  // namespace page_text
