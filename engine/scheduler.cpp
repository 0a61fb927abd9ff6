#include "engine/scheduler.h"

#include <algorithm>

#include "crawl/crawl_state.h"
#include "engine/endings.h"
#include "engine/http_exchange.h"
#include "engine/main_window.h"
#include "engine/report_notes.h"
#include "extractor/addresses.h"
#include "output/save_file.h"
#include "platform/services.h"
#include "text/numbers.h"
#include "text/text.h"

namespace bas_Connections {

namespace {

constexpr std::size_t kLongestPath = 999;
constexpr std::uint16_t kHttpPort = 80;
constexpr int kHighestTypedCount = 23;

/// Sets `address` as the slot's job.
void TakeAddress(std::string address, crawl::ConnectionSlot& slot) {
    bas_Extractor::StripHttp(address);
    text::ReplaceAllIn(address, ".jpeg", ".jpg");
    slot.Url = std::move(address);
    const std::size_t slash = text::InStr(slot.Url, "/");
    if (slash > 0) {
        slot.Path = text::Mid(slot.Url, slash, kLongestPath);
        slot.Host = text::Left(slot.Url, slash - 1);
    } else {
        slot.Host = slot.Url;
        slot.Path = "/";
    }
    if (!text::Contains(slot.Path, ".")) slot.Path += "/";
}

void RefuseTypedCount() {
    engine::Window().SetTxtMax("4");
    platform::System().boxes.MsgBox("Must be a number of connections from 1 to 24",
                                    platform::BoxStyle::Stop, "Try Again");
}

}  // namespace

void tmrMove_Timer() {
    if (!crawl::List1.Empty()) ConnectNext(crawl::List1.Item(crawl::List1.Count() - 1));
    NoteFailedConnections();
    UpdateStats();
}

void ConnectNext(std::string address) {
    engine::MainWindow& window = engine::Window();
    if (!engine::CrawlIsRunning()) return;
    const int index = FindFreeSlot();
    if (index == 0) return;
    // The address came from the end of the queue, or the queue is empty.
    crawl::List1.RemoveLast();

    crawl::ConnectionSlot& slot = crawl::Slots[index];
    ++slot.Job;
    slot.Row = crawl::Report.TakeNewest(slot.Row);
    TakeAddress(std::move(address), slot);
    slot.Response.Clear();
    slot.BytesReceived = 0;
    slot.ContentLength = 0;
    slot.Attempts = 1;

    window.Sock(index).Close();
    window.tmrOut(index).SetEnabled(false);
    window.tmrOut(index).SetEnabled(true);
    OpenConnection(index);
}

std::string SavedFileOf(const std::string& folder, std::string address) {
    crawl::ConnectionSlot job;
    TakeAddress(std::move(address), job);
    ShortenIndexPath(job);
    return bas_Output::SavedFileOf(folder, "\\" + job.Host + job.Path);
}

void OpenConnection(int index) {
    const std::string& host = crawl::Slots[index].Host;
    SetSlotStatus(index, "Connecting to " + host);
    crawl::Slots[index].AnswerStart = crawl::Slots[index].Response.Size();
    engine::Window().Sock(index).Connect(host, kHttpPort);
}

int FindFreeSlot() {
    const int count = std::min<std::int32_t>(ConnectionsCount(), crawl::kSlotCount);
    for (int i = 1; i <= count; ++i) {
        if (engine::Window().Sock(i).State() <= platform::SocketState::Closed) return i;
    }
    return 0;
}

void CloseAllSockets() {
    for (int i = 1; i <= crawl::kSlotCount; ++i)
        engine::Window().Sock(i).Close();
}

std::int32_t ConnectionsCount() {
    return text::RoundHalfEven(text::LeadingNumber(engine::Window().TxtMax())).value_or(0);
}

void txtMax_Change() {
    const std::optional<double> count = text::WholeNumber(engine::Window().TxtMax());
    if (!count || *count > kHighestTypedCount) RefuseTypedCount();
}

void txtMax_Click() {
    const std::optional<double> count = text::WholeNumber(engine::Window().TxtMax());
    if (!count || *count > kHighestTypedCount) return;
    for (int i = std::max(1, ConnectionsCount() + 1); i <= crawl::kSlotCount; ++i)
        ResetSlotRow(i);
}

}  // namespace bas_Connections
