#pragma once

#include <QString>
#include <cstdint>

namespace ui {

/// A count as it is shown, for example "1,234".
QString CountText(std::uint64_t count);

/// A count of things, for example "1 page" or "1,234 pages".
QString CountText(std::uint64_t count, const char* one, const char* more);

}  // namespace ui
