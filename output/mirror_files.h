#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

/// The local mirror. This file: every write of a crawl goes through here, and none leaves the
/// target folder. What a site says becomes part of a path, and names are cleaned late, so "../" can
/// appear after every test for it; the refusal here is the only thing that stops it.
namespace bas_Output {

/// Forgets which writes failed and which folders were made. For the start of a crawl.
void BeginMirror();

/// Creates one folder in the target folder, or one of the target folder's own parents.
/// False when it lies elsewhere, exists or cannot be made.
bool MakeMirrorFolder(std::string_view folder);

/// Replaces or appends to a file inside the target folder. False when the path lies elsewhere or
/// the host refuses; such a path is remembered.
bool WriteMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts);
bool AppendMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts);

/// Deletes a file inside the target folder.
void DeleteMirrorFile(std::string_view path);

/// Whether writing this path failed since `BeginMirror`.
bool WriteFailedBefore(std::string_view path);

/// Deletes the files "*.tmp" in the folder that the crawl noted, in lower case, as
/// `lowered_folder`: in the folders that it really made under that name, letter for letter, and in
/// no look-alike.
void SweepMadeFolder(std::string_view lowered_folder);

}  // namespace bas_Output
