#pragma once

#include <string>

/// Site setup. This file: the persisted settings and the target folder.
namespace bas_General {

/// The stored value of `key`, or `fallback` if there is none.
std::string ReadSetting(const std::string& key, const std::string& fallback);

/// Stores `value` under `key`.
void PutSetting(const std::string& key, const std::string& value);

/// The target folder at the first start.
inline constexpr char kDefaultFolder[] = "C:\\Websites\\";

/// The stored target folder, unchanged; `kDefaultFolder` at first.
std::string StoredFolder();

/// A typed folder with its name cleaned, "/" replaced by "\", and at least one "\" at its end.
std::string NormalizeFolder(const std::string& typed);

/// Sets `TargetFolder` to `folder`, which must be normalized, and creates it with its parents. If
/// it is not writable, shows a box and returns false.
bool PrepareTargetFolder(const std::string& folder);

/// Whether a probe file can be written to the folder and deleted. Replaces "/" in `path` by "\" and
/// appends a missing final "\".
bool TestFolderWritable(std::string& path);

}  // namespace bas_General
