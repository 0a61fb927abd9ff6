#include "engine/folder_claim.h"

#include <memory>

#include "crawl/crawl_state.h"
#include "platform/services.h"

namespace bas_Connections {

namespace {
std::unique_ptr<platform::FolderClaim> g_claim;
}

bool ClaimTargetFolder() {
    g_claim.reset();
    g_claim = platform::System().files.ClaimFolder(crawl::TargetFolder);
    if (g_claim != nullptr) return true;
    return platform::System().boxes.MsgBox(
               "Another download is saving into this folder. Each would change the other's "
               "files.\r\n\r\nWould you like to save this one there anyway?",
               platform::BoxStyle::StopYesNo, "Folder in Use") == platform::BoxAnswer::Yes;
}

void ReleaseTargetFolder() {
    g_claim.reset();
}

}  // namespace bas_Connections
