#include "platform/path_text.h"

#include <algorithm>
#include <cstddef>

#include "platform/path_rules.h"
#include "text/ascii.h"

namespace platform {

namespace {

/// Whether resolving would change nothing. This is true of most paths, because a path is resolved
/// when it is checked and again when it is opened. Names that start with a dot count as unresolved.
bool IsResolved(std::string_view path) {
    if (!HasDrive(path) || path[0] < 'a' || path.find('/') != path.npos || !IsOnDrive(path))
        return false;
    if (path.size() > 2 && path[2] != '\\') return false;
    for (std::size_t at = path.find('\\'); at != path.npos; at = path.find('\\', at + 1)) {
        if (at + 1 == path.size() || path[at + 1] == '\\' || path[at + 1] == '.') return false;
    }
    return true;
}

/// The length of the first name. Most paths contain one kind of separator, so each kind is searched
/// for separately.
std::size_t NameLength(std::string_view path) {
    const std::string_view name = path.substr(0, path.find('\\'));
    return std::min(name.find('/'), name.size());
}

}  // namespace

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && text::IsLetter(path[0]);
}

std::optional<std::string> ResolvePathText(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) return std::nullopt;
    if (IsResolved(path)) return std::string(path);
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
        const std::size_t name_length = NameLength(path);
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
