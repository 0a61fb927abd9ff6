#pragma once

#include <cstdint>
#include <string>

/// The crawl engine. This file: how jobs and crawls end, and the counters.
namespace bas_Connections {

/// Slot `index` was silent for one full interval: its job is tried again, at most three times in
/// all.
void tmrOut_Timer(int index);

/// Whether all 24 sockets are closed.
bool AllSocketsClosed();

/// Ends the crawl as complete when nothing is queued and nothing is connected any more.
void CompleteIfDone();

/// Ends a running crawl as complete and offers the mirror's folder. Nothing when no crawl runs.
void SiteComplete();

/// Stops everything at once and makes the window idle.
void StopNOW();

/// The stop button: asks, then stops and reloads the window. `Window()` is another one afterwards.
void AskStop();

/// Stops the start of new files and shows the pause dialog.
void mnupause_Click();

/// The pause dialog has gone: new files start again.
void Resume();

/// The window is about to be unloaded. Asks, unless it is only being reloaded; false means stay.
/// True means that the crawl has been stopped and cleaned up.
bool Form_Unload();

/// The same as if the question had been answered with Yes.
void CleanUpForExit();

/// A count as the counters show it, "," between groups of three digits.
std::string FormatCount(std::int64_t count);

/// Brings the counters on the window up to date.
void UpdateStats();

}  // namespace bas_Connections
