#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// A byte count as a short size text: "N bytes" below 1024, then KB, MB or GB with three
/// significant digits, cut and not rounded (2000 is "1.95 KB"). The count is read as unsigned.
std::string StrFormatByteSize(std::int32_t bytes);

}  // namespace platform
