#pragma once

/// The crawl engine. This file: only one crawl per folder.
namespace bas_Connections {

/// Claims `TargetFolder` for the crawl that is about to start. If a crawl in another running copy
/// of the program has claimed it, a box asks whether to start anyway. Returns false if the user
/// decides not to.
bool ClaimTargetFolder();

/// Releases the claim at the end of the crawl.
void ReleaseTargetFolder();

}  // namespace bas_Connections
