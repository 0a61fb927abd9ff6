#pragma once

/// The crawl engine. This file: only one crawl per folder.
namespace bas_Connections {

/// Claims `TargetFolder` for the crawl that is about to start. If another crawl, of any running
/// copy of the program, has claimed it, a box asks. False if the user decides not to start.
bool ClaimTargetFolder();

/// Releases the claim at the end of the crawl.
void ReleaseTargetFolder();

}  // namespace bas_Connections
