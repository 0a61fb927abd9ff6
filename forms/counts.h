#pragma once

#include <QString>
#include <cstdint>

namespace ui {

/// A count as display text, for example "1,234".
QString CountText(std::uint64_t count);

/// The same with the name of what is counted, for example "1 page" or "1,234 pages".
QString CountText(std::uint64_t count, const char* one, const char* more);

}  // namespace ui
