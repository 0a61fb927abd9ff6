#pragma once

/// The crawl engine. This file: one crawl to a folder.
namespace bas_Connections {

/// Claims `TargetFolder` for the crawl that is about to start. Where another one, of any running
/// copy of the program, is being saved in it, a box asks; false means that the answer was not to
/// start.
bool ClaimTargetFolder();

/// Gives the folder up when the crawl has ended.
void ReleaseTargetFolder();

}  // namespace bas_Connections
