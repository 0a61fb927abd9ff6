#include "output/copy_survey.h"

#include "output/mirror_files.h"
#include "output/paths.h"
#include "platform/path_text.h"
#include "platform/services.h"
#include "text/text.h"

namespace bas_Output {

std::optional<std::string> HostFolder(const std::string& target_folder, const std::string& host) {
    // The target folder's own name loses every "www.", too, when a local path is made.
    const std::string shortened = text::ReplaceAll(target_folder, "www.", "");
    const std::string target(text::Trim(shortened));
    const auto root = platform::ResolvePathText(target);
    const auto folder = platform::ResolvePathText(target + "\\" + CleanLinkName(host));
    if (!root || !folder || *folder == *root || platform::ParentOfResolved(*folder) != *root)
        return std::nullopt;
    return folder;
}

CopySurvey::CopySurvey(const std::string& host_folder, Placeholders placeholders)
    : host_folder_(host_folder), placeholders_(placeholders) {
    if (!platform::System().files.IsLink(host_folder)) folders_.push_back(host_folder);
}

bool CopySurvey::Step() {
    if (reader_ != nullptr) {
        if (const auto entry = reader_->Next()) {
            LookAt(*entry);
        } else {
            reader_.reset();
        }
        return true;
    }
    if (folders_.empty()) return false;
    folder_ = std::move(folders_.back());
    folders_.pop_back();
    reader_ = platform::System().files.OpenFolder(folder_);
    return true;
}

void CopySurvey::LookAt(const platform::FolderReader::Entry& entry) {
    using Kind = platform::FolderReader::Kind;
    if (entry.kind == Kind::Link) return;
    std::string path = folder_ + "\\" + entry.name;
    if (entry.kind == Kind::Folder) {
        folders_.push_back(std::move(path));
    } else if (path.ends_with(kPlaceholderEnd) && IsPlaceholder(path)) {
        MeetPlaceholder(path);
    } else {
        ++files_;
    }
}

void CopySurvey::MeetPlaceholder(const std::string& path) {
    platform::Files& files = platform::System().files;
    // A folder may have been replaced by a link since it was listed.
    const bool removed = placeholders_ == Placeholders::Remove &&
                         files.IsInside(path, host_folder_) && files.DeleteFile(path);
    ++(removed ? removed_ : unfinished_);
}

}  // namespace bas_Output
