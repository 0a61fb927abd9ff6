#pragma once

#include <cstdint>
#include <string>

/// The crawl engine. This file: handing queued addresses to free connections.
namespace bas_Connections {

/// The scheduler's tick: starts at most one connection, for the newest address in the queue.
void tmrMove_Timer();

/// Starts fetching `address` on the first free connection and removes the queue's last item. Does
/// nothing if no crawl runs or no connection is free.
void ConnectNext(std::string address);

/// The local path under which a crawl into `folder` saves a queued address. `folder` ends in "\".
std::string SavedFileOf(const std::string& folder, std::string address);

/// Connects the socket of slot `index` to its job's host, always on port 80, and shows that in its
/// row.
void OpenConnection(int index);

/// The first of the slots 1 to N whose socket is closed; 0 if there is none.
int FindFreeSlot();

/// Closes all 24 sockets, in any state.
void CloseAllSockets();

/// N, the number of connections, read from the box; 0 if the text does not start with a number.
std::int32_t ConnectionsCount();

/// The number of connections was typed. Refuses a text that is not a number, and a number above 23.
void txtMax_Change();

/// The number of connections was chosen from the list. Resets the rows beyond it.
void txtMax_Click();

}  // namespace bas_Connections
