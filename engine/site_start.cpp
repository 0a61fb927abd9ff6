#include "engine/site_start.h"

#include <string>

#include "crawl/crawl_state.h"
#include "engine/main_window.h"
#include "engine/scheduler.h"
#include "extractor/addresses.h"
#include "output/mirror_files.h"
#include "setup/file_types.h"
#include "text/http_scheme.h"
#include "text/text.h"

namespace bas_Connections {

namespace {

void ResetCrawl() {
    CloseAllSockets();
    crawl::List1.Clear();
    crawl::Report.Clear();
    for (crawl::ConnectionSlot& slot : crawl::Slots)
        slot.Row = crawl::kNoRow;
    crawl::TotalBytes = 0;
    crawl::FilesDone = 0;
    crawl::MadeFolders.clear();
    crawl::ReportFolder = crawl::TargetFolder;
    bas_Output::BeginMirror();
}

}  // namespace

std::string CleanTypedAddress(const std::string& typed) {
    std::string address{text::WithoutHttp(text::Trim(typed))};
    if (!text::Contains(text::LowerCase(address), "www.")) address.insert(0, "www.");
    return address;
}

std::string SiteHostOf(const std::string& address) {
    const std::string host = bas_Extractor::CutHostAtDelimiter(address);
    return std::string(text::Trim(text::ReplaceAll(host, "www.", "")));
}

void ConnectNowNow() {
    ResetCrawl();
    engine::MainWindow& window = engine::Window();
    const std::string address = CleanTypedAddress(window.Text1());
    window.SetText1(address);
    window.SetPauseEnabled(true);

    crawl::SiteHost = SiteHostOf(address);
    crawl::FileTypeSet = bas_General::LoadFileTypes();

    window.SetCommand1Enabled(false);
    window.SetCommand2Enabled(true);
    crawl::LastSearchPage.clear();

    // The start page does not pass through the queue, which is empty now.
    crawl::Report.Add(address);
    ConnectNext(address);

    window.tmrMove().SetEnabled(true);
    window.SetText1Enabled(false);
    window.SetLabel6("Downloading Site [" + address + "]");
}

void Text1_KeyDown(int key_code) {
    if (key_code == kEnterKey) ConnectNowNow();
}

}  // namespace bas_Connections
