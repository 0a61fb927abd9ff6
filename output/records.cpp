#include "output/records.h"

#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "crawl/crawl_state.h"
#include "output/mirror_files.h"
#include "output/paths.h"
#include "platform/services.h"
#include "text/field_walker.h"
#include "text/replacements.h"
#include "text/text.h"

namespace bas_Output {

namespace {

constexpr std::size_t kShortestSweptFolder = 5;

void FoldBlanks(std::string& page_text) {
    static const text::Replacements rules(
        {{"\r\n", " "}, {"\n", " "}, {"\r", " "}, {"  ", " "}, {"  ", " "}});
    rules.ApplyTo(page_text);
}

platform::PageKind KindOf(const std::string& path) {
    return text::LowerCase(path).ends_with(".txt") ? platform::PageKind::PlainText
                                                   : platform::PageKind::Markup;
}

std::string SearchFolder() {
    return crawl::TargetFolder + "\\_SearchData";
}

void SweepFolder(std::string_view field) {
    std::string folder(field);
    text::ReplaceAllIn(folder, "/", "\\");
    if (folder.size() < kShortestSweptFolder) return;
    if (!folder.ends_with('\\')) folder += '\\';
    SweepMadeFolder(folder);
}

}  // namespace

bool AppendToFile(const std::string& text, std::string& path) {
    MakeLocalPath(path);
    return AppendMirrorFile(path, {text + "\r\n"});
}

std::string GetPageText(const std::string& path) {
    for (int i = 0; i < 4; ++i) {
        platform::System().events.DoEventsThrottled();
    }
    std::string page_text;
    if (auto page = ReadMirrorFile(path)) {
        page_text = platform::System().page_text.InnerText(std::move(*page), KindOf(path));
    }
    FoldBlanks(page_text);
    return page_text;
}

void RecordSearchText(const std::string& text, int slot, const std::string& path) {
    const std::string folder = SearchFolder();
    if (MayMakeFolder(folder)) MakeFolder(folder);

    const std::string lowered = text::LowerCase(text::Mid(path, crawl::TargetFolder.size() + 1));
    const std::string page_path{text::Trim(lowered)};
    std::string key = ":" + page_path + ":";
    if (text::Contains(crawl::LastSearchPage, key)) return;
    crawl::LastSearchPage = std::move(key);

    if (!crawl::Slots.Has(slot)) return;
    const std::string host = text::ReplaceAll(crawl::Slots[slot].Host, "www.", "");
    AppendMirrorFile(folder + "\\" + host + ".txt", {"! " + page_path + "\r\n", text, "\r\n"});
}

void RemoveTempFiles() {
    // Not `GetToken`, which starts at the first field each time: a crawl may make thousands of
    // folders.
    text::FieldWalker folders(crawl::MadeFolders, "*");
    std::unordered_set<std::string_view> swept;
    for (auto folder = folders.Next(); folder && !folder->empty(); folder = folders.Next()) {
        // Folders that differ only in case share one noted text and are swept together.
        if (swept.insert(*folder).second) SweepFolder(*folder);
    }
}

}  // namespace bas_Output
