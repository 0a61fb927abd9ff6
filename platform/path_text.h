#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Converts between the program's own path text and the system's paths.
///
/// If the system has no drives, "c:" (in either case) is the user's home folder and "z:" the root.
/// A text that starts with "\" is relative to the root, and one that starts with a name is relative
/// to the home folder. On Windows the text is the path.
namespace platform {

/// Whether names that differ only in case are the same to the system.
#ifdef _WIN32
inline constexpr bool kFoldsCase = true;
#else
inline constexpr bool kFoldsCase = false;
#endif

/// The canonical text for `path`, for example "c:\a\b": "." and ".." are resolved and clamped at
/// the root, and there is no doubled or final "\". Nothing for an empty text, a text with a NUL, a
/// drive that the system does not have, or, on Windows, a network share, which must be mapped to a
/// drive.
std::optional<std::string> ResolvePathText(std::string_view path);

/// The parent of a resolved text, also resolved. A root is its own parent.
std::string_view ParentOfResolved(std::string_view resolved);

/// The system's path for `path`, for opening and for showing; nothing if `ResolvePathText` returns
/// nothing.
std::optional<std::string> SystemPathOf(std::string_view path);

/// The path text for a system path as a person types it: "/srv/mirror" becomes "\srv\mirror". A
/// relative path is relative to the current folder. Path text is returned unchanged.
std::string PathTextOf(std::string_view system_path);

}  // namespace platform
