#pragma once

#include <string>

/// The crawl engine. This file: the start of a crawl.
namespace bas_Connections {

/// What the user typed, without blanks and scheme and with "www." in front unless it has one
/// somewhere: the address that a crawl begins with.
std::string CleanTypedAddress(const std::string& typed);

/// The host of such an address without "www.".
std::string SiteHostOf(const std::string& address);

/// Starts the crawl of the site in the address box into `TargetFolder`: resets the engine, cleans
/// the address, fetches it on a free connection and turns the scheduler on. Does not judge the
/// address.
void ConnectNowNow();

/// The key code of Enter.
inline constexpr int kEnterKey = 13;

/// A key went down in the address box; Enter starts the crawl.
void Text1_KeyDown(int key_code);

}  // namespace bas_Connections
