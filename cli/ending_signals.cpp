#include "cli/ending_signals.h"

#include <csignal>
#include <cstdlib>

namespace cli {

namespace {

#ifdef _WIN32
constexpr int kEndingSignals[] = {SIGINT, SIGTERM};
#else
constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};
#endif
volatile std::sig_atomic_t g_signal = 0;

extern "C" void NoteSignal(int number) {
    if (g_signal != 0 && number == SIGINT) std::_Exit(ExitCodeOf(number));
    if (g_signal == 0) g_signal = number;
#ifdef _WIN32
    std::signal(number, NoteSignal);  // Windows resets the handler each time
#endif
}

}  // namespace

void NoteEndingSignals() {
    for (const int number : kEndingSignals) {
        if (std::signal(number, SIG_IGN) != SIG_IGN) std::signal(number, NoteSignal);
    }
}

int EndingSignal() {
    return g_signal;
}

}  // namespace cli
