#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bas_General {

/// The lines of a list file. A line ends with CR LF, or with LF alone if the file was edited on
/// another system. Blank lines are dropped; the others are not trimmed.
std::vector<std::string> SplitListFile(std::string_view bytes);

/// The contents of a list file with these lines, each trimmed and followed by CR LF.
std::string JoinListFile(const std::vector<std::string>& lines);

}  // namespace bas_General
