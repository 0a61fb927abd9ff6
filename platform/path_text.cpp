#include "platform/path_text.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>

#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#endif

namespace platform {

namespace {

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' &&
           ((path[0] >= 'a' && path[0] <= 'z') || (path[0] >= 'A' && path[0] <= 'Z'));
}

char LowerLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// The root of `path` as a resolved text begins with it, without a separator at its end; takes it
/// off `path`.
std::optional<std::string> TakeRoot(std::string_view& path) {
    std::string root;
    if (HasDrive(path)) {
        root = {LowerLetter(path[0]), ':'};
        path.remove_prefix(2);
#ifdef _WIN32
    } else if (!IsSeparator(path[0])) {
        std::error_code error;
        root = std::filesystem::current_path(error).string();
#else
        if (root != "c:" && root != "z:") return std::nullopt;
    } else {
        root = IsSeparator(path[0]) ? "z:" : "c:";
#endif
    }
    return root;
}

/// A name as the system sees it. Windows drops blanks and dots at the end of a name, so that ".. "
/// would climb after all.
std::string_view HostName(std::string_view name) {
#ifdef _WIN32
    const std::string_view without_blanks = name.substr(0, name.find_last_not_of(' ') + 1);
    if (without_blanks == "..") return without_blanks;
    return name.substr(0, name.find_last_not_of(" .") + 1);
#else
    return name;
#endif
}

#ifndef _WIN32
std::string HomeFolder() {
    const char* home = std::getenv("HOME");
    if (home != nullptr && home[0] == '/') return home;
    const passwd* user = getpwuid(getuid());
    return user != nullptr ? user->pw_dir : "/";
}
#endif

}  // namespace

std::optional<std::string> ResolvePathText(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) return std::nullopt;
    const std::size_t length = path.size();
    std::optional<std::string> resolved = TakeRoot(path);
    if (!resolved) return std::nullopt;

    const std::size_t root_length = resolved->size();
    resolved->reserve(length + 3);
    while (!path.empty()) {
        const auto end = std::find_if(path.begin(), path.end(), IsSeparator);
        const auto name_length = static_cast<std::size_t>(end - path.begin());
        const std::string_view name = HostName(path.substr(0, name_length));
        path.remove_prefix(std::min(name_length + 1, path.size()));

        if (name == "..") {
            const std::size_t cut = resolved->rfind('\\');
            if (cut != std::string::npos) resolved->resize(std::max(cut, root_length));
        } else if (!name.empty() && name != ".") {
            resolved->append("\\").append(name);
        }
    }
    return resolved;
}

std::string_view ParentOfResolved(std::string_view resolved) {
    return resolved.substr(0, resolved.rfind('\\'));
}

#ifdef _WIN32

std::optional<std::string> SystemPathOf(std::string_view path) {
    std::optional<std::string> system_path = ResolvePathText(path);
    // "c:" alone would be the current folder of that drive.
    if (system_path && system_path->find('\\') == std::string::npos) system_path->append("\\");
    return system_path;
}

std::string PathTextOf(std::string_view system_path) {
    std::string text(system_path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

#else

std::optional<std::string> SystemPathOf(std::string_view path) {
    const std::optional<std::string> resolved = ResolvePathText(path);
    if (!resolved) return std::nullopt;
    std::string system_path = resolved->front() == 'c' ? HomeFolder() : std::string();
    system_path.append(*resolved, 2);
    std::replace(system_path.begin(), system_path.end(), '\\', '/');
    if (system_path.empty()) system_path = "/";
    return system_path;
}

std::string PathTextOf(std::string_view system_path) {
    std::string text(system_path);
    if (HasDrive(text) || (!text.empty() && text.front() == '\\')) return text;
    if (text.empty() || text.front() != '/') {
        std::error_code error;
        text = std::filesystem::current_path(error).string() + "/" + text;
    }
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

#endif

}  // namespace platform
