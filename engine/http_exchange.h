#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "crawl/crawl_state.h"

/// The crawl engine. This file: one HTTP/1.0 GET per connection, from request to saved and scanned
/// page.
namespace bas_Connections {

/// The socket of slot `index` is connected: sends the request, or refuses a path that climbs above
/// the root.
void Sock_Connect(int index);

/// The page of a folder is asked for, and saved, as the folder.
void ShortenIndexPath(crawl::ConnectionSlot& slot);

/// Data waits on the socket of slot `index`.
void Sock_DataArrival(int index);

/// Appends one received chunk to the slot's response; when the server has closed its side, saves
/// and scans the response and frees the slot.
void ProcessResponse(std::string_view data, int index);

/// A byte count as display text, for example "1.95 KB".
std::string FormatByteSize(std::int32_t value);

/// Called after every chunk. Shows nothing: the place where a size table would be refreshed.
void ShowMatrixSizes();

}  // namespace bas_Connections
