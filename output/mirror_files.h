#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

/// The local mirror. This file: all reading and writing of a crawl in its mirror, always inside the
/// confines.
namespace bas_Output {

/// A placeholder's text, on one line or repeated on several.
inline constexpr std::string_view kPlaceholderText =
    "This file is queued to be downloaded, or did not download correctly.";

/// The end of a placeholder's name.
inline constexpr std::string_view kPlaceholderEnd = ".tmp";

/// Whether the ".tmp" file at `path` contains a placeholder's text. Does not read large files.
bool IsPlaceholder(const std::string& path);

/// Forgets the failed writes and the folders made. Call this at the start of a crawl.
void BeginMirror();

/// Whether a crawl may create this folder.
bool MayMakeFolder(std::string_view folder);

/// Remembers the real name of a new folder for the sweep.
void RememberMadeFolder(std::string_view folder);

/// Whether the mirror has a file at this path, or cannot have one because writing it failed in this
/// crawl, under any spelling. Without the latter, a page that links to itself under a name that
/// cannot be written would be queued for ever. A folder is not a file. Nothing outside the target
/// folder is looked up, because a site must not learn from the requests which files a computer has.
bool HasMirrorFile(std::string_view path);

/// The canonical text for all spellings of a path in the mirror.
std::string FileKey(std::string_view path);

/// Writes a page inside the folder called `host`, replacing an old one. A path elsewhere is a
/// fault. A path that cannot be written is remembered.
platform::FileResult WriteMirrorPage(std::string_view path, std::string_view host,
                                     std::initializer_list<std::string_view> parts);

/// Appends to a file inside the target folder. A ".tmp" file that is not a placeholder belongs to
/// the user, and appending to it is a fault. A path that cannot be written is remembered.
bool AppendMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts);

/// Reads a file inside the target folder; nothing on a fault or for a path elsewhere.
std::optional<std::string> ReadMirrorFile(std::string_view path);

/// Deletes a placeholder inside the target folder, but no other file.
void DeletePlaceholder(std::string_view path);

/// Deletes "*.tmp" in the folders that this crawl has made and whose paths are `lowered_folder` in
/// lower case. A folder that this crawl has not made is left alone, even if its path differs only
/// in case.
void SweepMadeFolder(std::string_view lowered_folder);

}  // namespace bas_Output
