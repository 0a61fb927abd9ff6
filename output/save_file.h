#pragma once

#include <string>
#include <string_view>

/// The local mirror. This file: saving a finished download.
namespace bas_Output {

/// Saves what connection `slot` has received, including the header, as the file for `address`:
/// strips the header, maps the address to a path, rewrites links, writes the file, records its
/// search text, deletes its placeholder and increments `FilesDone`. Skips steps that fail. Cleans
/// `address` (host and path) in place. `received` must be valid only until the first event runs.
void SaveFile(std::string_view received, std::string& address, int slot);

/// The local path under which the file of `address` is saved in a copy in `folder`, which ends in
/// "\".
std::string SavedFileOf(const std::string& folder, const std::string& address);

}  // namespace bas_Output
