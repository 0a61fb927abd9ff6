#pragma once

#include <string>

/// The crawl engine. This file: the start of a crawl.
namespace bas_Connections {

/// The address that a crawl starts with: what the user typed, without the scheme and blanks at both
/// ends, and with "www." in front if it contains none.
std::string CleanTypedAddress(const std::string& typed);

/// The host of such an address, without "www.".
std::string SiteHostOf(const std::string& address);

/// Starts a crawl of the site in the address box into `TargetFolder`: resets the engine, cleans the
/// address, fetches it on a free connection and turns on the scheduler. Does not check the address.
void ConnectNowNow();

/// The key code of Enter.
inline constexpr int kEnterKey = 13;

/// A key was pressed in the address box. Enter starts the crawl.
void Text1_KeyDown(int key_code);

}  // namespace bas_Connections
