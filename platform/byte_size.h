#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// Formats a byte count as a short text: "N bytes" below 1024, then KB, MB or GB with three
/// significant digits, truncated, not rounded (2000 is "1.95 KB"). The count is treated as
/// unsigned.
std::string StrFormatByteSize(std::int32_t bytes);

}  // namespace platform
