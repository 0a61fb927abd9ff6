#pragma once

#include <string>
#include <string_view>

/// The local mirror. This file: saving a finished download.
namespace bas_Output {

/// Saves what connection `slot` received, header and all, as the file of `address`: strips the
/// header, maps the address to a path, rewrites links, writes the file, records its search text,
/// deletes its placeholder and raises `FilesDone`. Steps that fail are skipped. `address` (host and
/// path) is cleaned in place. `received` must stay valid only until the first event runs.
void SaveFile(std::string_view received, std::string& address, int slot);

/// The local path under which the file of `address` is saved.
std::string SavedFileOf(const std::string& address);

}  // namespace bas_Output
