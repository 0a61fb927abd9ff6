#pragma once

#include <cstdint>
#include <string>

/// The crawl engine. This file: handing queued addresses to free connections.
namespace bas_Connections {

/// The scheduler's tick: starts at most one connection, for the newest address in the queue.
void tmrMove_Timer();

/// Starts fetching `address` on the first free connection and takes the last item off the queue.
/// Does nothing when no crawl runs or no connection is free.
void ConnectNext(std::string address);

/// The local path of the file that a queued address is saved as.
std::string SavedFileOf(std::string address);

/// Connects the socket of slot `index` to its job's host, always at port 80, and shows that in its
/// row.
void OpenConnection(int index);

/// The first slot among the first N whose socket is closed, or 0.
int FindFreeSlot();

/// Closes all 24 sockets, whatever they are doing.
void CloseAllSockets();

/// N, the number of connections, as the box says now; a text that is no number counts as 0.
std::int32_t ConnectionsCount();

/// The number of connections was typed: a text that is no number, or one above 23, is refused.
void txtMax_Change();

/// The number of connections was chosen from the list: rows beyond it are reset.
void txtMax_Click();

}  // namespace bas_Connections
