#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/path_rules.h"
#include "platform/path_text.h"

namespace platform {

bool IsOnDrive(std::string_view resolved) {
    return HasDrive(resolved);
}

std::string BaseOf(std::string_view path) {
    // A network share. Resolving builds a path name by name, which would turn its two "\" into one.
    if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) return {};
    std::array<char, MAX_PATH> buffer;
    const DWORD length = GetCurrentDirectoryA(buffer.size(), buffer.data());
    const std::string_view current(buffer.data(), length < buffer.size() ? length : 0);
    if (!HasDrive(current)) return {};
    return *ResolvePathText(IsSeparator(path[0]) ? current.substr(0, 2) : current);
}

std::optional<std::string> SystemPathOf(std::string_view path) {
    std::optional<std::string> system_path = ResolvePathText(path);
    // "c:" alone would mean the current folder of that drive.
    if (system_path && system_path->ends_with(':')) system_path->append("\\");
    return system_path;
}

std::string PathTextOf(std::string_view system_path) {
    std::string text(system_path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

}  // namespace platform
