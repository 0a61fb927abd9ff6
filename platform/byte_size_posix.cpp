#include "platform/byte_size.h"

#include <array>
#include <cstddef>

namespace platform {

namespace {

/// Formats a number below 1000, given in hundredths, with three significant digits; the rest is
/// truncated.
std::string ThreeDigits(std::uint64_t hundredths) {
    std::string digits = std::to_string(hundredths / 100);
    if (digits.size() == 3) return digits;
    std::string fraction = std::to_string(100 + hundredths % 100).substr(1);
    fraction.resize(3 - digits.size());
    return digits + "." + fraction;
}

}  // namespace

std::string StrFormatByteSize(std::int32_t bytes) {
    const std::uint64_t count = static_cast<std::uint32_t>(bytes);
    if (count < 1024) return std::to_string(count) + " bytes";

    static constexpr std::array<const char*, 3> kUnits = {" KB", " MB", " GB"};
    // 1000 or more of a unit would take four digits, so the next unit is used.
    std::uint64_t size = 1024;
    std::size_t unit = 0;
    while (count >= 1000 * size) {
        size *= 1024;
        ++unit;
    }
    return ThreeDigits(count * 100 / size) + kUnits.at(unit);
}

}  // namespace platform
