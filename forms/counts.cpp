#include "forms/counts.h"

#include "engine/endings.h"

namespace ui {

QString CountText(std::uint64_t count) {
    return QString::fromStdString(bas_Connections::FormatCount(static_cast<std::int64_t>(count)));
}

QString CountText(std::uint64_t count, const char* one, const char* more) {
    return CountText(count) + " " + (count == 1 ? one : more);
}

}  // namespace ui
