#pragma once

#include <string>

/// The crawl engine. This file: what a connection's row shows.
namespace bas_Connections {

/// What a row says while its connection is closed, and the window before its first crawl.
inline constexpr char kNotConnected[] = "Not Connected.";

/// Shows `text` as the status of row `slot`.
void SetSlotStatus(int slot, const std::string& text);

/// Makes row `slot` look unconnected. Changes no slot field and no socket.
void ResetSlotRow(int slot);

}  // namespace bas_Connections
