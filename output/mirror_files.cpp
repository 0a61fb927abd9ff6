#include "output/mirror_files.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "engine/state/crawl_state.h"
#include "platform/path_text.h"
#include "platform/services.h"
#include "text/text.h"

namespace bas_Output {

namespace {

/// The folder that a crawl writes into, and what has been found out about it. Asking the system
/// where a folder really lies follows every symbolic link on the way, which is too slow for every
/// link of a page, so the folders that lie inside are kept.
struct Confines {
    std::string target_folder;       // the text that the rest was made from
    std::vector<std::string> roots;  // resolved
    std::unordered_set<std::string> folders_inside;
};

Confines g_confines;
std::unordered_set<std::string> g_unwritten;
std::unordered_map<std::string, std::vector<std::string>> g_made_folders;  // by lowered text

Confines ConfinesOf(const std::string& target_folder) {
    Confines confines{target_folder, {}, {}};
    const std::string shortened = text::ReplaceAll(target_folder, "www.", "");
    for (const std::string_view root : {std::string_view(target_folder), text::Trim(shortened)}) {
        if (const auto resolved = platform::ResolvePathText(root)) {
            confines.roots.push_back(*resolved);
        }
    }
    return confines;
}

Confines& CurrentConfines() {
    if (g_confines.target_folder != crawl::TargetFolder) {
        g_confines = ConfinesOf(crawl::TargetFolder);
    }
    return g_confines;
}

bool LiesInside(const Confines& confines, std::string_view path) {
    return std::any_of(
        confines.roots.begin(), confines.roots.end(),
        [path](const std::string& root) { return platform::System().files.IsInside(path, root); });
}

bool FolderLiesInside(std::string_view resolved_folder) {
    Confines& confines = CurrentConfines();
    std::string folder(resolved_folder);
    if (confines.folders_inside.contains(folder)) return true;
    if (!LiesInside(confines, folder)) return false;
    confines.folders_inside.insert(std::move(folder));
    return true;
}

bool IsRootOrItsParent(const std::string& resolved_folder) {
    const std::vector<std::string>& roots = CurrentConfines().roots;
    return std::any_of(roots.begin(), roots.end(), [&](const std::string& root) {
        return (root + "\\").starts_with(resolved_folder + "\\");
    });
}

/// Whether this file lies inside, also when it is itself a symbolic link.
bool FileLiesInside(const std::string& resolved_path) {
    return FolderLiesInside(platform::ParentOfResolved(resolved_path)) &&
           (!platform::System().files.IsLink(resolved_path) ||
            LiesInside(CurrentConfines(), resolved_path));
}

/// The text under which a path is remembered, whatever its spelling.
std::string KeyOf(std::string_view path) {
    return platform::ResolvePathText(path).value_or(std::string(path));
}

}  // namespace

void BeginMirror() {
    g_confines = ConfinesOf(crawl::TargetFolder);
    g_unwritten.clear();
    g_made_folders.clear();
}

bool MayMakeFolder(std::string_view folder) {
    const auto resolved = platform::ResolvePathText(folder);
    return resolved && (IsRootOrItsParent(*resolved) ||
                        FolderLiesInside(platform::ParentOfResolved(*resolved)));
}

void RememberMadeFolder(std::string_view folder) {
    const std::string key = KeyOf(folder);
    g_made_folders[text::LowerCase(key)].push_back(key);
}

bool WriteMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts) {
    const auto resolved = platform::ResolvePathText(path);
    if (resolved && FileLiesInside(*resolved) &&
        platform::System().files.WriteFile(*resolved, parts)) {
        return true;
    }
    g_unwritten.insert(KeyOf(path));
    return false;
}

bool AppendMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts) {
    const auto resolved = platform::ResolvePathText(path);
    if (resolved && FileLiesInside(*resolved) &&
        platform::System().files.AppendFile(*resolved, parts)) {
        return true;
    }
    g_unwritten.insert(KeyOf(path));
    return false;
}

std::optional<std::string> ReadMirrorFile(std::string_view path) {
    const auto resolved = platform::ResolvePathText(path);
    if (!resolved || !FileLiesInside(*resolved)) return std::nullopt;
    return platform::System().files.ReadFile(*resolved);
}

void DeleteMirrorFile(std::string_view path) {
    const auto resolved = platform::ResolvePathText(path);
    if (resolved && FolderLiesInside(platform::ParentOfResolved(*resolved))) {
        platform::System().files.DeleteFile(*resolved);
    }
}

bool WriteFailedBefore(std::string_view path) {
    // Asked for every link, and in most crawls nothing ever failed.
    return !g_unwritten.empty() && g_unwritten.contains(KeyOf(path));
}

void SweepMadeFolder(std::string_view lowered_folder) {
    const std::string key = KeyOf(lowered_folder);
    const auto made = g_made_folders.find(text::LowerCase(key));
    const std::vector<std::string> folders =
        made != g_made_folders.end() ? made->second : std::vector<std::string>{key};
    for (const std::string& folder : folders) {
        platform::System().files.DeleteBySuffix(folder, ".tmp");
    }
}

}  // namespace bas_Output
