#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

/// The local mirror. This file: every look of a crawl into its mirror and every write to it goes
/// through here, and none leaves the confines.
namespace bas_Output {

/// What a placeholder says, as one line or several.
inline constexpr std::string_view kPlaceholderText =
    "This file is queued to be downloaded, or did not download correctly.";

/// What its name ends in.
inline constexpr std::string_view kPlaceholderEnd = ".tmp";

/// Whether the file at `path`, whose name ends so, is a placeholder: its text tells. Reads no large
/// file.
bool IsPlaceholder(const std::string& path);

/// Forgets which writes failed and which folders were made. For the start of a crawl.
void BeginMirror();

/// Whether a crawl may create this folder.
bool MayMakeFolder(std::string_view folder);

/// Remembers the real name of a folder that was made, for the sweep.
void RememberMadeFolder(std::string_view folder);

/// Whether the mirror has a file of this path, or can have none since writing it failed in this
/// crawl, under this or another spelling: without that, a page that links to itself under a name
/// that cannot be written would be queued for ever. A folder is no file, and outside the target
/// folder nothing is looked at and no file is there: what a site is asked for must not tell it
/// which files a computer has.
bool HasMirrorFile(std::string_view path);

/// The one text for all spellings of a path in the mirror.
std::string FileKey(std::string_view path);

/// Replaces a page in the folder of the host whose folder is called `host`. A fault when the path
/// lies elsewhere or the system refuses; such a path is remembered.
platform::FileResult WriteMirrorPage(std::string_view path, std::string_view host,
                                     std::initializer_list<std::string_view> parts);

/// Appends to a file inside the target folder, but not to one that ends in ".tmp" and is no
/// placeholder: that one is the user's. False, and remembered, as above.
bool AppendMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts);

/// Reads a file inside the target folder.
std::optional<std::string> ReadMirrorFile(std::string_view path);

/// Deletes a placeholder inside the target folder, and no other file.
void DeletePlaceholder(std::string_view path);

/// Deletes the files "*.tmp" in the folder that the crawl noted, in lower case, as
/// `lowered_folder`: in the folders that it really made under that name, letter for letter, and in
/// no look-alike.
void SweepMadeFolder(std::string_view lowered_folder);

}  // namespace bas_Output
