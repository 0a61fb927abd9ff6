#include "cli/unattended.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <csignal>
#include <optional>

#include "cli/ending_signals.h"
#include "cli/report_file.h"
#include "crawl/crawl_state.h"
#include "crawl/report_text.h"
#include "engine/endings.h"
#include "engine/folder_claim.h"
#include "engine/main_window.h"
#include "engine/site_start.h"
#include "engine/typed_address.h"
#include "platform/path_text.h"
#include "platform/qt/ascii_host.h"
#include "setup/file_types.h"
#include "setup/settings.h"
#include "text/text.h"
#include "ui/frm_main.h"

namespace cli {

namespace {

constexpr int kCheckMilliseconds = 50;
constexpr int kProgressMilliseconds = 1000;

std::string Progress() {
    const auto queued = static_cast<std::int64_t>(crawl::List1.Count());
    return bas_Connections::FormatCount(crawl::FilesDone) + " files, " +
           bas_Connections::FormatCount(queued) + " queued, " +
           bas_Connections::FormatCount(crawl::TotalBytes) + " bytes";
}

/// The folder as it appears in every path below it; nothing if the rules for names would change it.
/// In the wizard the user sees such a change; here the files would go to an unexpected place.
std::optional<std::string> FolderThatStays(const std::string& typed) {
    const std::string folder = platform::ResolvePathText(typed).value_or(typed) + "\\";
    const bool stays = bas_General::NormalizeFolder(folder) == folder &&
                       !text::Contains(folder, "www.") && !text::Contains(folder, "\\ ");
    return stays ? std::optional(folder) : std::nullopt;
}

bool PrepareFolder(const std::string& typed, Terminal& terminal) {
    const std::optional<std::string> folder = FolderThatStays(typed);
    if (folder) return bas_General::PrepareTargetFolder(*folder);
    terminal.Print(
        "This folder's path would be changed: it must not contain \"www.\", \"__\", any of\n"
        "* < > { } ? ! & | or a name that begins with a blank.");
    return false;
}

bool PrepareFileTypes(Terminal& terminal) {
    bas_General::MakeFirstFileTypesFile();
    if (bas_General::AnyFileTypeKnown()) return true;
    const std::string file = bas_General::FileTypesFile();
    terminal.Print("No file type to download is known. List the types, one per line, in\n" +
                   platform::SystemPathOf(file).value_or(file) +
                   "\nor delete this file: the program then writes a new list if it can.");
    return false;
}

/// Prints a line to stderr if the address cannot be fetched. The crawl starts anyway, as it does
/// from the window.
void WarnOf(const std::string& site) {
    const bas_Connections::AddressFault fault =
        bas_Connections::FaultOfTypedAddress(site, platform::AsciiHost);
    if (fault.what.empty()) return;
    const std::string advice =
        fault.instead.empty() ? "." : ". Did you mean " + fault.instead + "?";
    OutputStream(OutputStream::Which::Error).Write(fault.what + advice + kLineEnd);
}

void Start(const CrawlOrder& order, ui::frmMain& window) {
    window.ChooseConnections(order.connections);
    window.SetText1(order.site);
    bas_Connections::ConnectNowNow();
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        window.tmrOut(i).SetInterval(order.timeout_milliseconds);
    }
}

/// Shows the progress of a crawl. Ends the event loop when the crawl has ended, by itself or
/// because it must.
class Watch {
  public:
    Watch(ui::WindowHolder& holder, Terminal& terminal, ReportFile& report)
        : holder_(holder), terminal_(terminal), report_(report) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { Check(); });
        timer_.start(kCheckMilliseconds);
        since_progress_.start();
    }

  private:
    void Check() {
        terminal_.Flush();
        report_.Flush();
        if (engine::CrawlIsRunning()) StopIfAsked();
        // On a busy computer nearly every check comes inside a yield of the crawl.
        if (engine::CrawlIsRunning() && since_progress_.hasExpired(kProgressMilliseconds)) {
            terminal_.ShowProgress(Progress());
            since_progress_.start();
        }
        if (!engine::CrawlIsRunning() && holder_.StackIsIdle()) QCoreApplication::exit(exit_code_);
    }

    void StopIfAsked() {
        if (EndingSignal() == 0 && !terminal_.ReaderGone()) return;
        exit_code_ = EndingSignal() != 0 ? ExitCodeOf(EndingSignal()) : kExitReaderGone;
        bas_Connections::StopNOW();
    }

    ui::WindowHolder& holder_;
    Terminal& terminal_;
    ReportFile& report_;
    QTimer timer_;
    QElapsedTimer since_progress_;
    int exit_code_ = kExitComplete;
};

bool PrepareReport(const std::string& path, ReportFile& report, Terminal& terminal) {
    const std::string why_not = path.empty() ? "" : report.Open(path);
    if (why_not.empty()) return true;
    terminal.Print("The report cannot be written to " +
                   platform::SystemPathOf(path).value_or(path) + ": " + why_not);
    return false;
}

/// The exit code of a crawl that was not stopped.
int ExitCodeOf(const crawl::AddressReport& report) {
    using crawl::Outcome;
    if (report.CountOf(Outcome::Saved) == 0) return kExitNothing;
    for (const Outcome fault :
         {Outcome::Unanswered, Outcome::Short, Outcome::NotWritten, Outcome::TooLarge}) {
        if (report.CountOf(fault) > 0) return kExitIncomplete;
    }
    return kExitComplete;
}

int RunCrawl(const CrawlOrder& order, ui::WindowHolder& holder, ReportFile& report,
             Terminal& terminal) {
    Start(order, holder.Current());
    const Watch watch(holder, terminal, report);
    int exit_code = QCoreApplication::exec();
    const bool stopped = exit_code != kExitComplete;
    if (!stopped) exit_code = ExitCodeOf(crawl::Report);
    if (const std::string why_not = report.Finish(); !why_not.empty()) {
        terminal.Print("The report is not complete: " + why_not);
        if (!stopped) exit_code = kExitUnusable;
    }
    terminal.Print(crawl::SummaryOf(crawl::Report));
    terminal.Say(bas_Connections::FormatCount(crawl::FilesDone) + " files, " +
                 bas_Connections::FormatCount(crawl::TotalBytes) +
                 (stopped ? " bytes when it was stopped." : " bytes."));
    return exit_code;
}

}  // namespace

int RunUnattended(const CrawlOrder& order, ui::WindowHolder& holder, Terminal& terminal) {
    NoteEndingSignals();
#ifndef _WIN32
    std::signal(SIGPIPE, SIG_IGN);  // Terminal detects it
#endif
    WarnOf(order.site);
    int exit_code = kExitUnusable;
    ReportFile report;
    if (PrepareFolder(order.folder, terminal) && PrepareFileTypes(terminal) &&
        bas_Connections::ClaimTargetFolder() && PrepareReport(order.report, report, terminal)) {
        exit_code = RunCrawl(order, holder, report, terminal);
    }
    terminal.Finish();
    return exit_code;
}

}  // namespace cli
