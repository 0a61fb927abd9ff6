#include "engine/start_page.h"

#include "crawl/crawl_state.h"
#include "engine/scheduler.h"
#include "engine/site_start.h"
#include "platform/services.h"
#include "setup/settings.h"

namespace bas_Connections {

namespace {

std::string StartPageOf(const std::string& folder, const std::string& address) {
    if (SiteHostOf(address).empty()) return "";
    std::string file = SavedFileOf(folder, address);
    const platform::Files& files = platform::System().files;
    return files.FileLength(file) && !files.FolderExists(file) ? file : "";
}

}  // namespace

std::string StartPage() {
    if (crawl::Report.Count() > 0) {
        return StartPageOf(crawl::ReportFolder, std::string(crawl::Report.Row(0).address));
    }
    return StartPageOf(bas_General::NormalizeFolder(bas_General::StoredFolder()),
                       CleanTypedAddress(bas_General::ReadSetting("LastURL", "")));
}

}  // namespace bas_Connections
