#include "platform/path_text.h"

#include <algorithm>
#include <cstddef>

#include "platform/path_rules.h"
#include "text/ascii.h"

namespace platform {

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && text::IsLetter(path[0]);
}

std::optional<std::string> ResolvePathText(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) return std::nullopt;
    std::string resolved;
    if (HasDrive(path)) {
        resolved = {text::LowerLetter(path[0]), ':'};
        path.remove_prefix(2);
    } else {
        resolved = BaseOf(path);
    }
    if (!IsOnDrive(resolved)) return std::nullopt;

    resolved.reserve(resolved.size() + path.size() + 1);
    while (!path.empty()) {
        const auto end = std::find_if(path.begin(), path.end(), IsSeparator);
        const auto name_length = static_cast<std::size_t>(end - path.begin());
        const std::string_view name = path.substr(0, name_length);
        path.remove_prefix(std::min(name_length + 1, path.size()));

        if (name == "..") {
            resolved.resize(ParentOfResolved(resolved).size());
        } else if (!name.empty() && name != ".") {
            resolved.append("\\").append(name);
        }
    }
    return resolved;
}

std::string_view ParentOfResolved(std::string_view resolved) {
    return resolved.substr(0, resolved.rfind('\\'));
}

}  // namespace platform
