#include "output/confines.h"

#include <algorithm>
#include <cstddef>

#include "platform/path_text.h"
#include "platform/services.h"
#include "text/text.h"

namespace bas_Output {

namespace {

constexpr std::string_view kRecordFiles[] = {"log.txt", "transdd.txt"};
constexpr std::string_view kSearchFolder = "_searchdata";

/// The last name of a path in lower case, as systems that ignore case compare it.
std::string LoweredName(std::string_view path) {
    return text::LowerCase(path.substr(path.rfind('\\') + 1));
}

bool IsIn(std::string_view path, const std::string& folder) {
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '\\';
}

}  // namespace

Confines::Confines(const std::string& target_folder) : target_folder_(target_folder) {
    const std::string shortened = text::ReplaceAll(target_folder, "www.", "");
    for (const std::string_view root : {std::string_view(target_folder), text::Trim(shortened)}) {
        if (const auto resolved = platform::ResolvePathText(root)) {
            roots_.push_back(*resolved);
            inside_.insert(*resolved);
        }
    }
}

bool Confines::ContainsFolder(const std::string& folder) {
    if (inside_.contains(folder)) return true;
    // A folder can leave its parent only by being a symlink, and the parent is usually known.
    if (LimitOf(folder).empty()) return false;
    const bool inside = platform::System().files.IsLink(folder)
                            ? StaysInside(folder)
                            : ContainsFolder(std::string(platform::ParentOfResolved(folder)));
    if (inside) inside_.insert(folder);
    return inside;
}

bool Confines::Contains(const std::string& file) {
    return ContainsFolder(std::string(platform::ParentOfResolved(file))) &&
           (!platform::System().files.IsLink(file) || StaysInside(file));
}

bool Confines::MayWritePage(const std::string& file, std::string_view host) {
    if (!Contains(file)) return false;
    for (const std::string& root : roots_) {
        const auto folder = platform::ResolvePathText(std::string(root).append("\\").append(host));
        // A name like ".." does not name a folder inside the root.
        if (folder && IsIn(*folder, root) && IsIn(file, *folder)) {
            return LoweredName(*folder) != kSearchFolder;
        }
    }
    return false;
}

bool Confines::MayCreateFolder(const std::string& folder) {
    for (const std::string& root : roots_) {
        if (folder == root || IsIn(root, folder)) return true;
        const std::string_view parent = platform::ParentOfResolved(folder);
        if (parent == root && std::ranges::count(kRecordFiles, LoweredName(folder)) > 0) {
            return false;
        }
    }
    return ContainsFolder(std::string(platform::ParentOfResolved(folder)));
}

/// The folder that `path` must stay in when links are followed; "" if it is outside the target
/// folder.
std::string Confines::LimitOf(std::string_view path) const {
    for (const std::string& root : roots_) {
        if (!IsIn(path, root)) continue;
        const std::size_t end_of_host = path.find('\\', root.size() + 1);
        return end_of_host == path.npos ? root : std::string(path.substr(0, end_of_host));
    }
    return "";
}

bool Confines::StaysInside(const std::string& path) const {
    const std::string limit = LimitOf(path);
    return !limit.empty() && platform::System().files.IsInside(path, limit);
}

}  // namespace bas_Output
