#pragma once

#include <string>

/// Site setup. This file: the persisted settings and the target folder.
namespace bas_General {

/// The stored value of `key`, or `fallback`.
std::string ReadSetting(const std::string& key, const std::string& fallback);

/// Stores `value` under `key`.
void PutSetting(const std::string& key, const std::string& value);

/// The target folder of a first start.
inline constexpr char kDefaultFolder[] = "C:\\Websites\\";

/// The stored target folder as it was left, `kDefaultFolder` at first.
std::string StoredFolder();

/// A typed folder with its name cleaned, "\" for "/" and one "\" at its end at least.
std::string NormalizeFolder(const std::string& typed);

/// Makes `folder`, which is normalised already, the `TargetFolder` and creates it with its parents.
/// Whether it can be written into; a box says so when it cannot.
bool PrepareTargetFolder(const std::string& folder);

/// Whether a probe file can be written into and deleted from the folder. `path` gains "\" forms and
/// end.
bool TestFolderWritable(std::string& path);

}  // namespace bas_General
