#include "setup/settings.h"

#include "crawl/crawl_state.h"
#include "output/paths.h"
#include "platform/services.h"
#include "text/text.h"

namespace bas_General {

namespace {

constexpr char kApplication[] = "Vantorin";
constexpr char kSection[] = "Settings";

void MakeFolderText(std::string& folder) {
    text::ReplaceAllIn(folder, "/", "\\");
    if (!folder.ends_with('\\')) folder += '\\';
}

}  // namespace

std::string ReadSetting(const std::string& key, const std::string& fallback) {
    return platform::System().settings.Get(kApplication, kSection, key, fallback);
}

void PutSetting(const std::string& key, const std::string& value) {
    platform::System().settings.Put(kApplication, kSection, key, value);
}

std::string StoredFolder() {
    return ReadSetting("InDir", kDefaultFolder);
}

std::string NormalizeFolder(const std::string& typed) {
    std::string folder = bas_Output::CleanLinkName(typed);
    MakeFolderText(folder);
    return folder;
}

bool PrepareTargetFolder(const std::string& folder) {
    crawl::TargetFolder = folder;
    std::string path = folder;
    bas_Output::MakeLocalPath(path);
    if (TestFolderWritable(crawl::TargetFolder)) return true;
    platform::System().boxes.MsgBox(
        "That is an invalid directory. Check it has no invalid characters.",
        platform::BoxStyle::Stop, "Eror");
    return false;
}

bool TestFolderWritable(std::string& path) {
    MakeFolderText(path);
    const std::string probe = path + "test23893.txt";
    platform::Files& files = platform::System().files;
    return files.WriteFile(probe, {"sdkjlf\r\n"}) && files.DeleteFile(probe);
}

}  // namespace bas_General
