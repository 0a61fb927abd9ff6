#pragma once

#include <string>

/// The crawl engine. This file: where the reading of a copy begins.
namespace bas_Connections {

/// The local path of the file that the start address of the last crawl was saved as. Before the
/// first crawl of this run, the address and the folder that are stored count. "" while there is no
/// such file.
std::string StartPage();

}  // namespace bas_Connections
