#include "engine/endings.h"

#include <algorithm>

#include "crawl/crawl_state.h"
#include "crawl/job_watch.h"
#include "engine/folder_claim.h"
#include "engine/main_window.h"
#include "engine/report_notes.h"
#include "engine/scheduler.h"
#include "extractor/addresses.h"
#include "output/records.h"
#include "output/save_file.h"
#include "platform/services.h"
#include "text/text.h"

namespace bas_Connections {

namespace {

bool Confirmed(const std::string& question, const std::string& title) {
    return platform::System().boxes.MsgBox(question, platform::BoxStyle::InformationYesNo, title) ==
           platform::BoxAnswer::Yes;
}

bool IsAtWork(const crawl::ConnectionSlot& slot) {
    return slot.JobAtWork == slot.Job;
}

/// Whether the program itself kept slot `index` waiting, not a server: the slot's own response is
/// being processed, or it is not connected and another slot's response is being processed.
bool IsOurOwnWork(int index) {
    if (IsAtWork(crawl::Slots[index])) return true;
    return engine::Window().Sock(index).State() == platform::SocketState::Closed &&
           std::any_of(crawl::Slots.begin(), crawl::Slots.end(), IsAtWork);
}

}  // namespace

void tmrOut_Timer(int index) {
    if (IsOurOwnWork(index)) return;
    // The blanks around the backslash keep this from replacing a good file: no folder has that
    // name, so nothing is written. A slot that idles after a success gets here, too.
    const crawl::JobWatch job(index);
    std::string address = " \\ " + crawl::Slots[index].Host + crawl::Slots[index].Path;
    bas_Output::SaveFile("Unable to download this file. (Timeout)", address, index);
    platform::System().events.DoEvents();
    // The crawl was stopped, or the idle slot got a new job.
    if (job.Ended()) return;

    engine::MainWindow& window = engine::Window();
    crawl::ConnectionSlot& slot = crawl::Slots[index];
    NoteFailedTry(index);
    window.Sock(index).Close();
    ResetSlotRow(index);
    if (slot.Attempts == 1 || slot.Attempts == 2) {
        ++slot.Attempts;
        OpenConnection(index);
    } else {
        CompleteIfDone();
    }
}

bool AllSocketsClosed() {
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        if (engine::Window().Sock(i).State() != platform::SocketState::Closed) return false;
    }
    return true;
}

void CompleteIfDone() {
    if (crawl::List1.Empty() && AllSocketsClosed()) SiteComplete();
}

void SiteComplete() {
    if (!engine::CrawlIsRunning()) return;
    StopNOW();
    engine::Window().SetLabel6("Website Downloaded!");
    bas_Output::RemoveTempFiles();
    platform::System().events.DoEvents();
    UpdateStats();
    platform::System().boxes.AwaitAttention();
    if (Confirmed("The website has been downloaded.\r\n\r\n"
                  "Would you like to browse the download directory?",
                  "Done.")) {
        platform::System().processes.ExploreFolder(crawl::TargetFolder);
    }
}

void StopNOW() {
    engine::MainWindow& window = engine::Window();
    window.tmrMove().SetEnabled(false);
    bas_Output::RemoveTempFiles();
    crawl::List1.Clear();
    crawl::Report.Stop();
    CloseAllSockets();
    for (int i = 1; i <= crawl::kSlotCount; ++i) {
        crawl::ConnectionSlot& slot = crawl::Slots[i];
        SetSlotStatus(i, kNotConnected);
        slot.Path.clear();
        slot.Url.clear();
        slot.Host.clear();
        slot.Response.Clear();
        ++slot.Job;
        window.Sock(i).Close();
        window.tmrOut(i).SetEnabled(false);
    }
    ReleaseTargetFolder();
    window.SetCommand2Enabled(false);
    window.SetCommand1Enabled(true);
    window.SetText1Enabled(true);
    window.FocusText1();
}

void AskStop() {
    if (!Confirmed("Are you sure you want to cancel downloading the current website?",
                   "Stop Download")) {
        return;
    }
    engine::Window().ShowCleaningUp();
    StopNOW();
    crawl::Stopping = true;
    engine::Window().Reload();
    platform::System().events.DoEvents();
    engine::Window().SetLabel6("Operation Cancelled.");
    engine::Window().SetPauseEnabled(false);
}

void mnupause_Click() {
    engine::Window().tmrMove().SetEnabled(false);
    engine::Window().ShowPauseDialog();
}

void Resume() {
    engine::Window().tmrMove().SetEnabled(true);
}

bool Form_Unload() {
    if (crawl::Stopping) return true;
    if (!Confirmed("Are you sure you want to exit?", "Exit Vantorin")) return false;
    CleanUpForExit();
    return true;
}

void CleanUpForExit() {
    engine::Window().ShowCleaningUp();
    if (engine::CrawlIsRunning()) StopNOW();
    bas_Output::RemoveTempFiles();
    platform::System().events.DoEvents();
    engine::Window().tmrMove().SetEnabled(false);
    CloseAllSockets();
    engine::Window().ShowList1();
}

std::string FormatCount(std::int64_t count) {
    std::string digits = std::to_string(count);
    return std::string(text::Trim(bas_Extractor::FormatThousands(digits)));
}

void UpdateStats() {
    engine::MainWindow& window = engine::Window();
    window.SetLabel5(std::to_string(crawl::List1.Count()) + " Files");
    window.SetLabel3(FormatCount(crawl::FilesDone) + " Files");
    window.SetLabel4(FormatCount(crawl::TotalBytes) + " Bytes");
}

}  // namespace bas_Connections
