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
    std::array<char, MAX_PATH> buffer;
    const DWORD length = GetCurrentDirectoryA(buffer.size(), buffer.data());
    const std::string_view current(buffer.data(), length < buffer.size() ? length : 0);
    if (!HasDrive(current)) return {};
    return *ResolvePathText(IsSeparator(path[0]) ? current.substr(0, 2) : current);
}

/// Windows drops blanks and dots at the end of a name, so that ".. " would climb after all.
std::string_view NameOnSystem(std::string_view name) {
    const std::string_view without_blanks = name.substr(0, name.find_last_not_of(' ') + 1);
    if (without_blanks == "..") return without_blanks;
    return name.substr(0, name.find_last_not_of(" .") + 1);
}

std::optional<std::string> SystemPathOf(std::string_view path) {
    std::optional<std::string> system_path = ResolvePathText(path);
    // "c:" alone would be the current folder of that drive.
    if (system_path && system_path->ends_with(':')) system_path->append("\\");
    return system_path;
}

std::string PathTextOf(std::string_view system_path) {
    std::string text(system_path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

}  // namespace platform
