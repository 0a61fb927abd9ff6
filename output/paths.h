#pragma once

#include <cstdint>
#include <string>

/// The local mirror. This file: from addresses to local paths, and the folders on the way.
namespace bas_Output {

/// The local path that folder + address text stands for.
std::string LocalPathOf(const std::string& path);

/// Turns folder + address text into a local file path, creates the folders on the way and stores
/// the path in `SavePath` and in `path`. The returned text is empty; a folder that cannot be made
/// is passed over.
std::string MakeLocalPath(std::string& path);

/// Why the last `MakeLocalPath` could not make a folder, in the system's words; "" when all are
/// there.
const std::string& WhyNoFolder();

/// Creates one folder; one that was really made is noted in `MadeFolders`. Reports nothing.
void MakeFolder(const std::string& folder);

/// Takes out of a name what cannot stand in a file name, and adds ".html" to a text without any
/// ".".
std::string CleanFileName(const std::string& name);

/// The same without the added ".html". Saved names and rewritten links agree because both use this.
std::string CleanLinkName(const std::string& name);

/// Whether the file lies directly in the site's host folder.
bool IsTopLevelFile(const std::string& path);

/// Field `index`, counted from 1, of a text split at `separator` (one character); "" when there is
/// none. Only for texts of at most 32767 characters.
std::string GetToken(const std::string& text, std::int16_t index, const std::string& separator);

}  // namespace bas_Output
