#include "ui/unattended.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <csignal>

#include "engine/endings.h"
#include "engine/main_window.h"
#include "engine/site_start.h"
#include "engine/state/crawl_state.h"
#include "setup/file_types.h"
#include "setup/settings.h"
#include "ui/frm_main.h"

namespace ui {

namespace {

constexpr int kCheckMilliseconds = 50;
constexpr int kProgressMilliseconds = 1000;

#ifdef _WIN32
constexpr int kEndingSignals[] = {SIGINT, SIGTERM};
#else
constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};
#endif
volatile std::sig_atomic_t g_signal = 0;

/// The first signal ends the run tidily; a second one, at once.
extern "C" void NoteSignal(int number) {
    g_signal = number;
    std::signal(number, SIG_DFL);
}

std::string Progress() {
    const auto queued = static_cast<std::int64_t>(crawl::List1.Count());
    return bas_Connections::FormatCount(crawl::FilesDone) + " files, " +
           bas_Connections::FormatCount(queued) + " queued, " +
           bas_Connections::FormatCount(crawl::TotalBytes) + " bytes";
}

bool PrepareFolder(const std::string& folder, Terminal& terminal) {
    // Cleaning takes characters out of the name. A person sees that in the wizard's box; here it
    // would put the files where nobody looks for them.
    const std::string cleaned = bas_General::NormalizeFolder(folder);
    if (cleaned != folder && cleaned != folder + "\\") {
        terminal.Print("The folder's name has characters that this program does not keep.");
        return false;
    }
    return bas_General::PrepareTargetFolder(cleaned);
}

void Start(const CrawlOrder& order, frmMain& window) {
    window.ChooseConnections(order.connections);
    window.SetText1(order.site);
    bas_Connections::ConnectNowNow();
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        window.tmrOut(i).SetInterval(order.timeout_milliseconds);
    }
}

/// Shows how far the crawl is, and ends the event loop when it has ended, by itself or by a signal.
void CheckCrawl(WindowHolder& holder, Terminal& terminal, QElapsedTimer& since_progress) {
    if (g_signal != 0 && engine::CrawlIsRunning()) bas_Connections::StopNOW();
    if (!holder.Unwound()) return;
    if (!engine::CrawlIsRunning()) {
        QCoreApplication::exit(g_signal == 0 ? kExitComplete : 128 + g_signal);
    } else if (since_progress.hasExpired(kProgressMilliseconds)) {
        terminal.ShowProgress(Progress());
        since_progress.start();
    }
}

}  // namespace

int RunUnattended(const CrawlOrder& order, WindowHolder& holder, Terminal& terminal) {
    if (!PrepareFolder(order.folder, terminal)) return kExitUnusableFolder;
    bas_General::MakeFirstFileTypesFile();
    for (const int number : kEndingSignals)
        std::signal(number, NoteSignal);
    Start(order, holder.Current());

    QElapsedTimer since_progress;
    since_progress.start();
    QTimer check;
    QObject::connect(&check, &QTimer::timeout,
                     [&] { CheckCrawl(holder, terminal, since_progress); });
    check.start(kCheckMilliseconds);
    const int exit_code = QCoreApplication::exec();
    terminal.Print(bas_Connections::FormatCount(crawl::FilesDone) + " files, " +
                   bas_Connections::FormatCount(crawl::TotalBytes) +
                   (exit_code == kExitComplete ? " bytes." : " bytes when it was stopped."));
    return exit_code;
}

}  // namespace ui
