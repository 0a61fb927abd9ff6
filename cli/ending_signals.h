#pragma once

namespace cli {

/// Takes note of SIGINT, SIGTERM and SIGHUP from now on, unless whoever started the program wants
/// them ignored, as `nohup` does. The first one is for the program to heed. Another one changes
/// nothing, for a terminal that closes sends several, but a second Ctrl+C ends the process at once.
void NoteEndingSignals();

/// The number of the signal that has come; 0 while none has.
int EndingSignal();

/// The exit code of a program that `signal` has ended.
constexpr int ExitCodeOf(int signal) {
    return 128 + signal;
}

}  // namespace cli
