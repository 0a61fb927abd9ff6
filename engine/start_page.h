#pragma once

#include <string>

/// The crawl engine. This file: the page with which reading a copy begins.
namespace bas_Connections {

/// The local path of the file that the start address of the last crawl was saved as. Before the
/// first crawl of this run, the stored address and folder count. "" while there is no such file.
std::string StartPage();

}  // namespace bas_Connections
