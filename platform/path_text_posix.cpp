#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/path_rules.h"
#include "platform/path_text.h"

namespace platform {

namespace {

std::string HomeFolder() {
    const char* home = std::getenv("HOME");
    if (home != nullptr && home[0] == '/') return home;
    const passwd* user = getpwuid(getuid());
    return user != nullptr ? user->pw_dir : "/";
}

}  // namespace

bool IsOnDrive(std::string_view resolved) {
    return resolved[0] == 'c' || resolved[0] == 'z';
}

std::string BaseOf(std::string_view path) {
    return IsSeparator(path[0]) ? "z:" : "c:";
}

std::optional<std::string> SystemPathOf(std::string_view path) {
    const std::optional<std::string> resolved = ResolvePathText(path);
    if (!resolved) return std::nullopt;
    std::string system_path = resolved->front() == 'c' ? HomeFolder() : std::string();
    system_path.append(*resolved, 2);
    for (std::size_t at = 0; (at = system_path.find('\\', at)) != system_path.npos; ++at) {
        system_path[at] = '/';
    }
    if (system_path.empty()) system_path += '/';
    return system_path;
}

std::string PathTextOf(std::string_view system_path) {
    std::string text(system_path);
    if (HasDrive(text) || text.starts_with('\\')) return text;
    if (!text.starts_with('/')) {
        std::error_code error;
        text = std::filesystem::current_path(error).string() + "/" + text;
    }
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

}  // namespace platform
