#include "output/mirror_files.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "crawl/crawl_state.h"
#include "output/confines.h"
#include "platform/path_text.h"
#include "platform/services.h"
#include "text/text.h"

namespace bas_Output {

namespace {

/// A longer file is not read to find out whether it is a placeholder.
constexpr std::uint64_t kLongestPlaceholder = 4096;

Confines g_confines;
std::unordered_set<std::string> g_unwritten;
std::unordered_map<std::string, std::vector<std::string>> g_made_folders;  // by lower-cased path

Confines& CurrentConfines() {
    if (g_confines.TargetFolder() != crawl::TargetFolder) {
        g_confines = Confines(crawl::TargetFolder);
    }
    return g_confines;
}

/// The key under which a path is remembered, the same for all spellings.
std::string KeyOf(std::string_view path) {
    return platform::ResolvePathText(path).value_or(std::string(path));
}

template <typename Result = platform::FileResult>
Result Remembered(Result result, std::string_view path) {
    if (!result) g_unwritten.insert(KeyOf(path));
    return result;
}

/// Called for every link, so this makes no key while no write has failed.
bool WriteFailedBefore(std::string_view path) {
    return !g_unwritten.empty() && g_unwritten.contains(KeyOf(path));
}

bool IsFile(const std::string& path) {
    const platform::Files& files = platform::System().files;
    const auto length = files.FileLength(path);
    return length && (*length > 0 || !files.FolderExists(path));
}

/// Appends to a file, but not to one that belongs to the user.
bool Append(const std::string& path, std::initializer_list<std::string_view> parts) {
    platform::Files& files = platform::System().files;
    if (!path.ends_with(kPlaceholderEnd)) return bool(files.AppendFile(path, parts));
    return files.WriteNewFile(path, parts) ||
           (IsPlaceholder(path) && files.AppendFile(path, parts));
}

}  // namespace

bool IsPlaceholder(const std::string& path) {
    const platform::Files& files = platform::System().files;
    return files.ReadShortFile(path, kLongestPlaceholder)
        .value_or("")
        .starts_with(kPlaceholderText);
}

void BeginMirror() {
    g_confines = Confines(crawl::TargetFolder);
    g_unwritten.clear();
    g_made_folders.clear();
}

bool MayMakeFolder(std::string_view folder) {
    const auto resolved = platform::ResolvePathText(folder);
    return resolved && CurrentConfines().MayCreateFolder(*resolved);
}

void RememberMadeFolder(std::string_view folder) {
    const std::string key = KeyOf(folder);
    g_made_folders[text::LowerCase(key)].push_back(key);
}

bool HasMirrorFile(std::string_view path) {
    const auto resolved = platform::ResolvePathText(path);
    // Most files do not exist, and only one that exists can be a link out of the folder.
    const bool has =
        resolved &&
        CurrentConfines().ContainsFolder(std::string(platform::ParentOfResolved(*resolved))) &&
        IsFile(*resolved) && CurrentConfines().Contains(*resolved);
    return has || WriteFailedBefore(path);
}

std::string FileKey(std::string_view path) {
    const std::string key = KeyOf(text::ReplaceAll(std::string(path), "www.", ""));
    return platform::kFoldsCase ? text::LowerCase(key) : key;
}

platform::FileResult WriteMirrorPage(std::string_view path, std::string_view host,
                                     std::initializer_list<std::string_view> parts) {
    const auto resolved = platform::ResolvePathText(path);
    if (!resolved) return Remembered({platform::kNoName}, path);
    if (!CurrentConfines().MayWritePage(*resolved, host)) {
        return Remembered({"outside the folder of its host"}, path);
    }
    return Remembered(platform::System().files.WriteFile(*resolved, parts), path);
}

bool AppendMirrorFile(std::string_view path, std::initializer_list<std::string_view> parts) {
    const auto resolved = platform::ResolvePathText(path);
    const bool written =
        resolved && CurrentConfines().Contains(*resolved) && Append(*resolved, parts);
    return Remembered(written, path);
}

std::optional<std::string> ReadMirrorFile(std::string_view path) {
    const auto resolved = platform::ResolvePathText(path);
    if (!resolved || !CurrentConfines().Contains(*resolved)) return std::nullopt;
    return platform::System().files.ReadFile(*resolved);
}

void DeletePlaceholder(std::string_view path) {
    const auto resolved = platform::ResolvePathText(path);
    if (resolved && CurrentConfines().Contains(*resolved) && IsPlaceholder(*resolved)) {
        platform::System().files.DeleteFile(*resolved);
    }
}

void SweepMadeFolder(std::string_view lowered_folder) {
    const auto made = g_made_folders.find(text::LowerCase(KeyOf(lowered_folder)));
    if (made == g_made_folders.end()) return;
    for (const std::string& folder : made->second) {
        platform::System().files.DeleteBySuffix(folder, kPlaceholderEnd);
    }
}

}  // namespace bas_Output
