#include "search/page_finder.h"

#include <algorithm>
#include <utility>

#include "text/text.h"

namespace search {

namespace {

constexpr std::size_t kNamesInAStep = 500;
/// The search gives up after this many names.
constexpr std::size_t kMostNames = 1'000'000;

std::vector<std::string> NamesOf(std::string_view path) {
    std::vector<std::string> names;
    while (true) {
        const std::size_t end = path.find('\\');
        names.emplace_back(path.substr(0, end));
        if (end == std::string_view::npos) return names;
        path.remove_prefix(end + 1);
    }
}

std::string Below(const std::string& folder, const std::string& name) {
    return folder + (folder.ends_with('\\') ? "" : "\\") + name;
}

/// Whether a name would lead out of its folder.
bool LeadsElsewhere(const std::string& name) {
    return name.empty() || name == "." || name == ".." || name.find('/') != std::string::npos;
}

}  // namespace

PageFinder::PageFinder(std::string folder, std::string_view recorded, const platform::Files& files)
    : files_(files), folder_(std::move(folder)), names_(NamesOf(recorded)) {
    while (folder_.ends_with("\\\\"))
        folder_.pop_back();
    if (std::none_of(names_.begin(), names_.end(), LeadsElsewhere)) {
        levels_.push_back({folder_});
    }
}

bool PageFinder::Step() {
    if (levels_.empty() || !found_.empty() || looked_at_ >= kMostNames) return false;
    Level& level = levels_.back();
    if (!std::exchange(level.tried_as_recorded, true)) {
        StepInto(Below(level.folder, Wanted()));
        return true;
    }
    if (level.names == nullptr) level.names = files_.OpenFolder(level.folder);
    if (level.names == nullptr || !LookThrough(level)) levels_.pop_back();
    return true;
}

/// Continues below `path` if it exists. False if it does not.
bool PageFinder::StepInto(std::string path) {
    const bool is_last = levels_.size() == names_.size();
    if (!files_.FileLength(path) || files_.FolderExists(path) == is_last) return false;
    if (!is_last) {
        levels_.push_back({std::move(path)});
    } else if (files_.IsInside(path, folder_)) {
        found_ = std::move(path);
    }
    return true;
}

/// Reads some names of the folder; false at its end.
bool PageFinder::LookThrough(Level& level) {
    for (std::size_t i = 0; i < kNamesInAStep; ++i) {
        const auto entry = level.names->Next();
        if (!entry) return false;
        ++looked_at_;
        const std::string& wanted = Wanted();
        if (entry->name == wanted || text::LowerCase(entry->name) != wanted) continue;
        if (StepInto(Below(level.folder, entry->name))) return true;  // `level` may have moved
    }
    return true;
}

}  // namespace search
