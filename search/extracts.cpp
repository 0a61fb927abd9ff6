#include "search/extracts.h"

#include <algorithm>
#include <utility>

namespace search {

namespace {

/// A copy has one extract for each host. The rest of a larger folder is ignored.
constexpr std::size_t kMostEntries = 10'000;

bool IsExtract(const platform::FolderReader::Entry& entry) {
    return entry.kind == platform::FolderReader::Kind::File && entry.name.ends_with(".txt");
}

}  // namespace

std::string_view WhyNothing(Extracts::State state) {
    switch (state) {
        case Extracts::State::Readable:
            return "";
        case Extracts::State::NoFolder:
            return "there is no such folder";
        case Extracts::State::NoExtract:
            return "no page was saved there";
        case Extracts::State::Unreadable:
            return "its records cannot be read";
    }
    return "";
}

Extracts ExtractsOf(const std::string& folder, const platform::Files& files) {
    using State = Extracts::State;
    if (!files.FolderExists(folder)) return {State::NoFolder, {}};
    const std::string place = folder + "\\_SearchData";
    const auto reader = files.OpenFolder(place);
    if (reader == nullptr) {
        const bool is_hidden = files.FolderExists(place) || files.OpenFolder(folder) == nullptr;
        return {is_hidden ? State::Unreadable : State::NoExtract, {}};
    }
    std::vector<std::string> paths;
    for (std::size_t seen = 0; seen < kMostEntries; ++seen) {
        const auto entry = reader->Next();
        if (!entry) break;
        if (IsExtract(*entry)) paths.push_back(place + "\\" + entry->name);
    }
    if (paths.empty()) return {State::NoExtract, {}};
    std::sort(paths.begin(), paths.end());
    const bool any = std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
        return files.OpenFile(path) != nullptr;
    });
    return {any ? State::Readable : State::Unreadable, std::move(paths)};
}

}  // namespace search
