#include "crawl/crawl_state.h"

namespace crawl {

text::OneBased<ConnectionSlot, kSlotCount> Slots;

std::string SiteHost;
std::string TargetFolder;
std::string FileTypeSet;

std::string SavePath;
std::string SavePathBeforeRename;
std::string MadeFolders;
std::string LastSearchPage;

std::int32_t TotalBytes = 0;
std::int32_t FilesDone = 0;
bool Stopping = false;

crawl::ListItems List1;
crawl::ListItems List2;

AddressReport Report;
std::string ReportFolder;

}  // namespace crawl
