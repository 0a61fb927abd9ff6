#include "output/save_file.h"

#include <algorithm>
#include <array>
#include <new>
#include <optional>

#include "crawl/crawl_state.h"
#include "crawl/job_watch.h"
#include "output/mirror_files.h"
#include "output/paths.h"
#include "output/records.h"
#include "output/rewrite_links.h"
#include "platform/services.h"
#include "text/numbers.h"
#include "text/text.h"

namespace bas_Output {

namespace {

bool IsRefused(std::string_view received) {
    const std::string_view word = text::Trim(received);
    return word.size() == 6 && text::LowerCase(word) == "cancel";
}

/// The text after the blank line that ends the header. A text without one loses its first three
/// characters.
std::string_view WithoutHeader(std::string_view received) {
    return text::Mid(received, text::InStr(received, "\r\n\r\n") + 4);
}

std::string PathBelow(const std::string& folder, const std::string& address) {
    return std::string(folder).append(text::Trim(address));
}

/// Turns a folder's path into that of its page, under the name that links use.
void AddDefaultName(std::string& path) {
    if (path.ends_with('\\')) path += "index.html";
    text::ReplaceAllIn(path, "\\.html", "\\index.html");
}

/// Gives a dynamic page a name that a browser opens without a server.
void RenameDynamicPage(std::string& path) {
    for (const std::string_view type : {".php", ".asp"}) {
        if (text::Contains(path, type) && !text::Contains(path, ".html")) path += ".html";
    }
    text::ReplaceAllIn(path, "\\\\", "\\");
}

bool HasTextLines(const std::string& path) {
    static constexpr std::array<std::string_view, 5> kTypes = {".htm", ".php", ".shtm", ".asp",
                                                               ".txt"};
    return std::any_of(kTypes.begin(), kTypes.end(),
                       [&path](std::string_view type) { return text::Contains(path, type); });
}

/// The name of the host's folder in the mirror. The address of a timed-out job starts with a blank
/// and gives a name that no folder has.
std::string HostFolderName(std::string_view address) {
    if (address.starts_with('\\')) address.remove_prefix(1);
    const std::string name(address.substr(0, address.find_first_of("\\/")));
    return text::ReplaceAll(name, "www.", "");
}

/// Writes the file for `address`. Stores its path in `SavePath`, and the path of its placeholder,
/// without ".tmp", in `SavePathBeforeRename`. Runs no events. The rewritten copy is freed on
/// return.
platform::FileResult WritePage(std::string_view received, std::string& address, int slot) {
    address = CleanFileName(address);
    std::string path = PathBelow(crawl::TargetFolder, address);
    MakeLocalPath(path);
    AddDefaultName(crawl::SavePath);
    // On a full disk the write would only report that its folder is missing.
    const std::string why_no_folder = WhyNoFolder();

    const bool has_lines = HasTextLines(crawl::SavePath);
    crawl::SavePathBeforeRename = crawl::SavePath;
    RenameDynamicPage(crawl::SavePath);
    text::ReplaceAllIn(address, "\\\\", "\\");

    const RewritingOf page{
        .has_lines = has_lines,
        .is_top_level = IsTopLevelFile(crawl::SavePath),
        .from_host = crawl::Slots.Has(slot) ? crawl::Slots[slot].Host : std::string()};
    const text::Replacements& rules = RewritingRules(page);
    const std::string_view body = WithoutHeader(received);
    const std::optional<std::string> rewritten = rules.AppliedTo(body);
    platform::FileResult result = WriteMirrorPage(crawl::SavePath, HostFolderName(address),
                                                  {rewritten ? *rewritten : body, "\r\n"});
    if (!result && !why_no_folder.empty()) result.why_not = why_no_folder;
    return result;
}

/// The report's row for what connection `slot` has received.
std::size_t RowOf(int slot) {
    return crawl::Slots.Has(slot) ? crawl::Slots[slot].Row : crawl::kNoRow;
}

/// Adds the page to the search extract, unless the slot's job has ended while the page was read:
/// its host is then gone. A page too large to be read again is not recorded.
void RecordPage(const std::string& save_path, bool written, int slot) {
    const crawl::JobWatch job(slot);
    try {
        // If the page was not written, a file of that name is a different one.
        const std::string page_text = GetPageText(written ? save_path : "");
        if (!job.Ended()) RecordSearchText(page_text, slot, save_path);
    } catch (const std::bad_alloc&) {
    }
}

bool HasSearchText(const std::string& path) {
    const std::string lowered = text::LowerCase(path);
    return text::Contains(lowered, ".htm") || text::Contains(lowered, ".tx");
}

}  // namespace

std::string SavedFileOf(const std::string& folder, const std::string& address) {
    std::string path = LocalPathOf(PathBelow(folder, CleanFileName(address)));
    AddDefaultName(path);
    RenameDynamicPage(path);
    return path;
}

void SaveFile(std::string_view received, std::string& address, int slot) {
    if (IsRefused(received)) {
        crawl::Report.NoteWrite(RowOf(slot), "the answer is the word \"cancel\"");
        return;
    }
    const platform::FileResult written = WritePage(received, address, slot);
    crawl::Report.NoteWrite(RowOf(slot), written.why_not);
    crawl::Report.NoteFile(FileKey(crawl::SavePath));

    // Events run from here on, and another save among them overwrites the shared strings.
    const std::string save_path = crawl::SavePath;
    const std::string placeholder = crawl::SavePathBeforeRename + ".tmp";
    if (HasSearchText(save_path)) RecordPage(save_path, bool(written), slot);
    platform::System().events.DoEvents();
    DeletePlaceholder(placeholder);
    text::AddWithinWidth(crawl::FilesDone, 1);
}

}  // namespace bas_Output
