#pragma once

#include "ui/command_line.h"
#include "ui/terminal.h"
#include "ui/window_holder.h"

namespace ui {

/// Exit codes of an unattended run. One that a signal ended exits with 128 and its number, as
/// programs do.
inline constexpr int kExitComplete = 0;
inline constexpr int kExitUnusableFolder = 1;

/// Runs the crawl as if the wizard had been filled in and its download button pressed, and returns
/// the exit code when it has ended. The holder's window is loaded but never shown.
int RunUnattended(const CrawlOrder& order, WindowHolder& holder, Terminal& terminal);

}  // namespace ui
