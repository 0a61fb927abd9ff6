#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bas_General {

/// The lines of a list file's bytes. Lines end in CR LF, or in a lone LF where the file was edited
/// by hand on another system; blank lines are left out, the others kept untrimmed.
std::vector<std::string> SplitListFile(std::string_view bytes);

/// The bytes of a list file with these lines, each trimmed and ended by CR LF.
std::string JoinListFile(const std::vector<std::string>& lines);

}  // namespace bas_General
