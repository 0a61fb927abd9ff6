#pragma once

#include <cstdint>
#include <string>

/// The local mirror. This file: turning addresses into local paths, and creating their folders.
namespace bas_Output {

/// The local path for folder + address text.
std::string LocalPathOf(const std::string& path);

/// Turns folder + address text into a local path, creates its folders and stores the path in
/// `SavePath` and `path`. A folder that cannot be created is skipped. Returns "".
std::string MakeLocalPath(std::string& path);

/// The system's message if it did not let the last `MakeLocalPath` create a folder; "" otherwise.
const std::string& WhyNoFolder();

/// Creates one folder and notes it in `MadeFolders` if it is new. Ignores faults.
void MakeFolder(const std::string& folder);

/// Removes or replaces the characters that are unsafe in file names, and appends ".html" to a text
/// without any ".".
std::string CleanFileName(const std::string& name);

/// The same without adding ".html". Saving and admission both use it, so that a link is recognized
/// by the name of its saved file.
std::string CleanLinkName(const std::string& name);

/// Whether the file lies directly in the site's host folder.
bool IsTopLevelFile(const std::string& path);

/// Field `index`, counted from 1, of a text split at `separator` (one character); "" if there is
/// none. Only for texts of at most 32767 characters.
std::string GetToken(const std::string& text, std::int16_t index, const std::string& separator);

}  // namespace bas_Output
