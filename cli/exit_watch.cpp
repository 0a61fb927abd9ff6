#include "cli/exit_watch.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <cstdlib>

#include "cli/ending_signals.h"
#include "output/records.h"

namespace cli {

namespace {

constexpr int kLookMilliseconds = 200;

bool g_watching = false;

/// Qt calls `exit` if the display is gone, and no destructors on the stack run. The window is
/// unusable then, but the placeholders must be deleted.
void SweepIfCutShort() {
    if (g_watching) bas_Output::RemoveTempFiles();
}

}  // namespace

ExitWatch::ExitWatch(ui::WindowHolder& holder) {
    NoteEndingSignals();
    QObject::connect(&signals_, &QTimer::timeout, [&holder] {
        if (EndingSignal() != 0) holder.Exit(ExitCodeOf(EndingSignal()));
    });
    signals_.start(kLookMilliseconds);
    session_ = QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest,
                                [&holder](QSessionManager& session) {
                                    session.setRestartHint(QSessionManager::RestartNever);
                                    holder.Exit(EXIT_SUCCESS);
                                });
    g_watching = true;
    std::atexit(SweepIfCutShort);
}

ExitWatch::~ExitWatch() {
    g_watching = false;
    QObject::disconnect(session_);
}

}  // namespace cli
