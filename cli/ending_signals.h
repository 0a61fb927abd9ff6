#pragma once

namespace cli {

/// Records SIGINT, SIGTERM and SIGHUP from now on, unless the parent process wants them ignored, as
/// `nohup` does. The program must react to the first one. Further ones change nothing, because a
/// closing terminal sends several; but a second Ctrl+C ends the process at once.
void NoteEndingSignals();

/// The number of the first signal; 0 while there is none.
int EndingSignal();

/// The exit code of a program ended by `signal`.
constexpr int ExitCodeOf(int signal) {
    return 128 + signal;
}

}  // namespace cli
