#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

/// The local mirror. This file: every write of a crawl goes through here, and none leaves the
/// target folder. What a site says becomes part of a path, and names are cleaned late, so "../" can
/// appear after every test for it; the refusal here is the only thing that stops it.
///
/// The target folder's own name loses every "www." on the way to a local path, as all names do; the
/// folder of that shortened name counts as the target folder too.
namespace bas_Output {

/// Forgets which writes failed and which folders were made. For the start of a crawl.
void BeginMirror();

/// Whether a crawl may create this folder: one in the target folder, or one of the target folder's
/// own parents.
bool MayMakeFolder(std::string_view folder);

/// Remembers the real name of a folder that was made, for the sweep.
void RememberMadeFolder(std::string_view folder);

/// Replaces or appends to a file inside the target folder. False when the path lies elsewhere or
/// the system refuses; such a path is remembered.
bool WriteMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts);
bool AppendMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts);

/// Reads a file inside the target folder.
std::optional<std::string> ReadMirrorFile(std::string_view path);

/// Deletes a file inside the target folder.
void DeleteMirrorFile(std::string_view path);

/// Whether writing this path, however spelled, failed since `BeginMirror`.
bool WriteFailedBefore(std::string_view path);

/// Deletes the files "*.tmp" in the folder that the crawl noted, in lower case, as
/// `lowered_folder`: in the folders that it really made under that name, letter for letter, and in
/// no look-alike.
void SweepMadeFolder(std::string_view lowered_folder);

}  // namespace bas_Output
