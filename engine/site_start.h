#pragma once

/// The crawl engine. This file: the start of a crawl.
namespace bas_Connections {

/// Starts the crawl of the site in the address box into `TargetFolder`: resets the engine, cleans
/// the address, fetches it on a free connection and turns the scheduler on. Does not judge the
/// address.
void ConnectNowNow();

/// A key went down in the address box; Enter (13) starts the crawl.
void Text1_KeyDown(int key_code);

}  // namespace bas_Connections
