#pragma once

#include <cstdint>
#include <string>

/// The crawl engine. This file: how jobs and crawls end, and the counters.
namespace bas_Connections {

/// Slot `index` was silent for a full interval. Tries its job again, at most three times in all.
void tmrOut_Timer(int index);

/// Whether all 24 sockets are closed.
bool AllSocketsClosed();

/// Ends the crawl as complete if nothing is queued and no socket is open.
void CompleteIfDone();

/// Ends a running crawl as complete and offers to open the mirror's folder. Does nothing if no
/// crawl runs.
void SiteComplete();

/// Stops everything at once and makes the window idle.
void StopNOW();

/// The stop button: asks, then stops the crawl and reloads the window. Afterwards `Window()` is
/// another one.
void AskStop();

/// Stops starting new files and shows the pause dialog.
void mnupause_Click();

/// The pause dialog was closed: starts new files again.
void Resume();

/// The window is about to be unloaded. Asks, unless it is only being reloaded. Returns false if it
/// must stay. Otherwise the crawl has been stopped and cleaned up.
bool Form_Unload();

/// Stops a running crawl and cleans up, without asking.
void CleanUpForExit();

/// A count as shown by the counters, with "," between groups of three digits.
std::string FormatCount(std::int64_t count);

/// Updates the counters in the window.
void UpdateStats();

}  // namespace bas_Connections
