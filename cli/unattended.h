#pragma once

#include "cli/command_line.h"
#include "cli/terminal.h"
#include "ui/window_holder.h"

namespace cli {

/// Exit codes of an unattended run. One that a signal ended exits with 128 and its number, as
/// programs do; so does one whose output nobody reads any more, with the number of SIGPIPE.
inline constexpr int kExitComplete = 0;
inline constexpr int kExitUnusable = 1;
inline constexpr int kExitIncomplete = 3;  ///< not every address was answered and written
inline constexpr int kExitNothing = 4;     ///< no file was saved
inline constexpr int kExitReaderGone = 141;

/// Runs the crawl as if the wizard had been filled in and its download button pressed, and returns
/// the exit code when it has ended. The holder's window is loaded but never shown.
int RunUnattended(const CrawlOrder& order, ui::WindowHolder& holder, Terminal& terminal);

}  // namespace cli
