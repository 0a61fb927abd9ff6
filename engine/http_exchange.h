#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "crawl/crawl_state.h"

/// The crawl engine. This file: one HTTP/1.0 GET per connection, from the request to the saved and
/// scanned page.
namespace bas_Connections {

/// The socket of slot `index` is connected: sends the request, or refuses a path that climbs above
/// the root.
void Sock_Connect(int index);

/// Replaces "/index.html" by "/": a folder's page is requested and saved as the folder.
void ShortenIndexPath(crawl::ConnectionSlot& slot);

/// Data waits on the socket of slot `index`.
void Sock_DataArrival(int index);

/// Appends one received chunk to the slot's response. If the server has closed its side, saves and
/// scans the response and frees the slot.
void ProcessResponse(std::string_view data, int index);

/// A byte count as display text, for example "1.95 KB".
std::string FormatByteSize(std::int32_t value);

/// Called after every chunk. Shows nothing; it is the place to refresh a table of sizes.
void ShowMatrixSizes();

}  // namespace bas_Connections
