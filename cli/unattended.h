#pragma once

#include "cli/command_line.h"
#include "cli/terminal.h"
#include "ui/window_holder.h"

namespace cli {

/// Exit codes of an unattended run. If a signal ends it, the code is 128 plus the signal's number,
/// as usual. If the reader of its output goes away, the code is 128 plus the number of SIGPIPE.
inline constexpr int kExitComplete = 0;
inline constexpr int kExitUnusable = 1;
inline constexpr int kExitIncomplete = 3;  ///< some addresses were not answered or not written
inline constexpr int kExitNothing = 4;     ///< no file was saved
inline constexpr int kExitReaderGone = 141;

/// Runs the crawl as if the wizard had been filled in and its download button pressed. Returns the
/// exit code at the end of the crawl. The holder's window is loaded but never shown.
int RunUnattended(const CrawlOrder& order, ui::WindowHolder& holder, Terminal& terminal);

}  // namespace cli
