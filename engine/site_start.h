#pragma once

#include <string>

/// The crawl engine. This file: the start of a crawl.
namespace bas_Connections {

/// What the user typed, without blanks and scheme and with "www." in front unless it has one
/// somewhere: the address that a crawl begins with.
std::string CleanTypedAddress(const std::string& typed);

/// Starts the crawl of the site in the address box into `TargetFolder`: resets the engine, cleans
/// the address, fetches it on a free connection and turns the scheduler on. Does not judge the
/// address.
void ConnectNowNow();

/// A key went down in the address box; Enter (13) starts the crawl.
void Text1_KeyDown(int key_code);

}  // namespace bas_Connections
