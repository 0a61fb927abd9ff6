#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Between the program's own path text and the system's paths.
///
/// Where the system knows no drives, "c:" (in either case) is the user's home folder and "z:" the
/// root; a text that begins with "\" starts at the root, and one that begins with a name in the
/// home folder. On Windows the text is the path.
namespace platform {

/// Whether the system takes names that differ in case alone for one.
#ifdef _WIN32
inline constexpr bool kFoldsCase = true;
#else
inline constexpr bool kFoldsCase = false;
#endif

/// The one text for the place that `path` names, for example "c:\a\b": "." and ".." resolved and
/// clamped at the root, no doubled or final "\". Nothing for an empty text, for one that holds a
/// NUL, for a drive that the system does not have, and on Windows for a share of the network, which
/// needs a drive of its own.
std::optional<std::string> ResolvePathText(std::string_view path);

/// The folder that the place lies in, of and as a resolved text; a root is its own parent.
std::string_view ParentOfResolved(std::string_view resolved);

/// The system's path of the place that `path` names, for opening and for showing; nothing where
/// `ResolvePathText` gives nothing.
std::optional<std::string> SystemPathOf(std::string_view path);

/// The path text of a system path, as a person types one: "/srv/mirror" is "\srv\mirror". A
/// relative one is taken from the current folder; what is path text already stays as it is.
std::string PathTextOf(std::string_view system_path);

}  // namespace platform
