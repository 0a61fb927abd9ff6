#include "engine/http_exchange.h"

#include <new>
#include <optional>
#include <utility>

#include "crawl/crawl_state.h"
#include "crawl/job_watch.h"
#include "engine/endings.h"
#include "engine/main_window.h"
#include "engine/report_notes.h"
#include "engine/response_memory.h"
#include "engine/scheduler.h"
#include "extractor/link_scanner.h"
#include "output/save_file.h"
#include "platform/byte_size.h"
#include "platform/services.h"
#include "text/numbers.h"
#include "text/text.h"

namespace bas_Connections {

namespace {

constexpr std::string_view kContentLength = "Content-Length:";

std::string RequestText(const crawl::ConnectionSlot& slot) {
    const std::string host{text::Trim(text::ReplaceAll(slot.Host, "/", ""))};
    const std::string path = text::ReplaceAll(slot.Path, "//", "/");
    return "GET " + path + " HTTP/1.0\r\n" +  //
           "Host: " + host + "\r\n" +         //
           "Referrer: " + host + "\r\n" +     //
           "User-Agent: Internet Explorer 6.01\r\n\r\n";
}

/// The announced length, from a chunk that contains the whole header line; nothing if the number
/// does not fit. Only the 12 characters from the second one after the colon on are examined.
std::optional<std::int32_t> AnnouncedLength(std::string_view data) {
    const std::size_t start = text::InStr(data, kContentLength) + kContentLength.size() + 1;
    const std::string_view window = text::Trim(text::Mid(data, start, 12));
    const std::size_t line_end = text::InStr(window, "\r\n");
    std::string value{line_end > 0 ? text::Left(window, line_end - 1) : std::string_view()};
    text::ReplaceAllIn(value, "\r", "");
    text::ReplaceAllIn(value, "\n", "");
    return text::RoundHalfEven(text::WholeNumber(value).value_or(0));
}

void ShowExpectedSize(std::string_view data, int index) {
    if (!text::Contains(data, kContentLength)) return;
    crawl::ConnectionSlot& slot = crawl::Slots[index];
    slot.ContentLength = AnnouncedLength(data).value_or(slot.ContentLength);
    engine::Window().SetRowSize(index, FormatByteSize(slot.ContentLength));
}

void ShowReceivedSize(int index) {
    if (ConnectionsCount() >= index) {
        const std::string size = FormatByteSize(crawl::Slots[index].BytesReceived);
        engine::Window().SetRowReceived(index, std::string(text::Trim(size)));
    } else {
        ResetSlotRow(index);
    }
}

/// `url` up to and including its last "/".
std::string PageFolder(const std::string& url) {
    return url.substr(0, url.rfind('/') + 1);
}

/// Marks a slot's response as being processed. Meanwhile the slot's timeout is ignored, because it
/// is not the server that is silent.
class ResponseWork {
  public:
    explicit ResponseWork(int index)
        : slot_(crawl::Slots[index]), job_before_(std::exchange(slot_.JobAtWork, slot_.Job)) {}
    ~ResponseWork() { slot_.JobAtWork = job_before_; }
    ResponseWork(const ResponseWork&) = delete;
    ResponseWork& operator=(const ResponseWork&) = delete;

  private:
    crawl::ConnectionSlot& slot_;
    unsigned job_before_;
};

/// The server has closed its side: saves the response, queues its links and frees the slot.
void FinishResponse(int index) {
    platform::EventLoop& events = platform::System().events;
    const crawl::JobWatch job(index);
    std::string address = "\\" + crawl::Slots[index].Host + crawl::Slots[index].Path;
    NoteAnswer(index);
    bas_Output::SaveFile(crawl::Slots[index].Response.View(), address, index);
    events.DoEventsThrottled();
    if (job.Ended()) return;

    std::string base = crawl::Slots[index].Url;
    if (text::Contains(base, "/")) {
        base = PageFolder(base);
        ResetSlotRow(index);
    }
    SetSlotStatus(index, "");
    events.DoEventsThrottled();
    if (job.Ended()) return;

    bas_Extractor::ExtractLinks(crawl::Slots[index].Response, crawl::List1, base);
    if (job.Ended()) return;
    GiveBackLeftover(index);
    engine::Window().Sock(index).Close();
    events.DoEventsThrottled();
    CompleteIfDone();
}

void Receive(std::string_view data, int index) {
    if (!MakeRoom(data.size(), index)) return;
    crawl::Slots[index].Response.Append(data);
    const crawl::JobWatch job(index);
    platform::System().events.DoEventsThrottled();
    if (job.Ended()) return;
    ShowExpectedSize(data, index);
    ShowReceivedSize(index);
    if (engine::Window().Sock(index).State() == platform::SocketState::Closing) {
        FinishResponse(index);
    }
}

}  // namespace

void Sock_Connect(int index) {
    engine::MainWindow& window = engine::Window();
    crawl::ConnectionSlot& slot = crawl::Slots[index];
    if (slot.Url.empty()) {
        window.Sock(index).Close();
        SetSlotStatus(index, kNotConnected);
        return;
    }
    ShortenIndexPath(slot);
    const std::string request = RequestText(slot);
    if (text::Contains(request, "GET /..") || text::Contains(request, "GET \\..")) {
        // Request nothing above the site's root. The marker is a response that is never saved.
        slot.Response.Assign("CANCEL");
        window.Sock(index).Close();
        crawl::Report.End(slot.Row, crawl::Outcome::NotAsked, 0);
        return;
    }
    window.Sock(index).SendData(request);
}

void ShortenIndexPath(crawl::ConnectionSlot& slot) {
    text::ReplaceAllIn(slot.Path, "/index.html", "/");
}

void Sock_DataArrival(int index) {
    engine::MainWindow& window = engine::Window();
    const ResponseWork at_work(index);
    window.tmrOut(index).SetEnabled(false);
    window.tmrOut(index).SetEnabled(true);
    const std::string data = window.Sock(index).GetData();
    const auto length = static_cast<std::int64_t>(data.size());
    text::AddWithinWidth(crawl::TotalBytes, length);
    text::AddWithinWidth(crawl::Slots[index].BytesReceived, length);
    ShowMatrixSizes();
    const crawl::JobWatch job(index);
    ProcessResponse(data, index);
    if (job.Ended()) return;

    const std::string& url = crawl::Slots[index].Url;
    if (text::Trim(url).empty()) {
        engine::Window().Sock(index).Close();
        SetSlotStatus(index, kNotConnected);
    } else if (ConnectionsCount() >= index) {
        SetSlotStatus(index, "Downloading " + url);
    } else {
        ResetSlotRow(index);
    }
}

void ProcessResponse(std::string_view data, int index) {
    const crawl::JobWatch job(index);
    try {
        Receive(data, index);
    } catch (const std::bad_alloc&) {
        // A response that does not fit into memory ends its own job, not the program.
        if (!job.Ended()) GiveUp(index);
    }
    // The job that was given up may be the last one of the crawl.
    if (job.Ended()) CompleteIfDone();
}

std::string FormatByteSize(std::int32_t value) {
    return platform::StrFormatByteSize(value);
}

void ShowMatrixSizes() {}

}  // namespace bas_Connections
