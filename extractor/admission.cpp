#include "extractor/admission.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "crawl/crawl_state.h"
#include "extractor/addresses.h"
#include "output/mirror_files.h"
#include "output/paths.h"
#include "output/records.h"
#include "platform/services.h"
#include "setup/keyword_filters.h"
#include "text/http_scheme.h"
#include "text/text.h"

namespace bas_Extractor {

namespace {

/// This limit ends crawls of pages that link deeper and deeper into themselves.
constexpr std::size_t kLongestLink = 4096;

/// A ".." right after the host climbs out of the site.
constexpr std::string_view kClimbsAboveHost[] = {
    ".info/..", ".tk/..",  ".uk/..",  ".au/..",  ".mil/..",
    ".gov/..",  ".edu/..", ".org/..", ".net/..", ".com/..",
};

/// Looks for the scheme after leading blanks, but cuts as many characters off the very start. This
/// is intended.
void CutScheme(std::string& link) {
    if (text::HasHttp(text::Trim(link))) link.erase(0, text::kHttp.size());
}

void TrimIn(std::string& s) {
    s = std::string(text::Trim(s));
}

/// Turns "\" into "/", and appends "index.html" to a folder.
void Normalize(std::string& link) {
    text::ReplaceAllIn(link, "http:\\", "http://");
    TrimIn(link);
    text::ReplaceAllIn(link, "\\", "/");
    TrimIn(link);
    if (LastChar(link) == "/") link += "index.html";
}

/// Handles a link that is dropped because its file exists. Counts the file once if it comes from an
/// earlier crawl.
void NoteKnown(const std::string& local_path) {
    // Nearly always the same link has been dropped before.
    if (!crawl::Report.NoteFile(local_path)) return;
    const std::string key = bas_Output::FileKey(local_path);
    if (key != local_path && !crawl::Report.NoteFile(key)) return;
    if (crawl::Report.HasFile(bas_Output::FileKey(local_path + ".html"))) return;
    crawl::Report.CountAlreadyThere();
}

/// The local path of the link's file.
std::string LocalPath(const std::string& link) {
    return bas_Output::CleanLinkName(crawl::TargetFolder + UrlToPathPart(link));
}

bool IsKnown(const std::string& local_path) {
    return FileExists(local_path + ".html") || FileExists(local_path) ||
           FileExists(local_path + ".tmp");
}

bool ClimbsAboveHost(const std::string& link) {
    return std::any_of(std::begin(kClimbsAboveHost), std::end(kClimbsAboveHost),
                       [&](std::string_view climb) { return text::Contains(link, climb); });
}

/// Appends one line to a file of the mirror. Ignores a line that cannot be written.
void Record(const std::string& line, std::string path) {
    bas_Output::AppendToFile(line, path);
}

void ResolveAndRecord(std::string& link) {
    const std::string records = crawl::TargetFolder + "transdd.txt";
    Record(link, records);
    ResolveDotDot(link);
    Record(link + "\r\n", records);
}

void Enqueue(const std::string& link, const std::string& local_path, crawl::ListItems& queue_list) {
    queue_list.AddItem(link);
    crawl::Report.Add(link);
    crawl::Report.NoteFile(bas_Output::FileKey(local_path));
    Record(std::string(bas_Output::kPlaceholderText), local_path + ".tmp");
    Record(link, crawl::TargetFolder + "log.txt");
    platform::System().events.DoEventsThrottled();
}

/// The path that a write to `path` really uses: records and placeholders lose every "www.", even in
/// the target folder's name.
std::string WrittenForm(const std::string& path) {
    return text::ReplaceAll(path, "www.", "");
}

}  // namespace

void AdmitLink(std::string link, crawl::ListItems& queue_list) {
    if (link.size() > kLongestLink) return;
    CutScheme(link);
    if (!text::Contains(text::LowerCase(link), text::LowerCase(crawl::SiteHost))) return;
    CutScheme(link);
    Normalize(link);

    // The placeholder keeps this name, although the link may change below.
    const std::string local_path = LocalPath(link);
    if (IsKnown(local_path)) return NoteKnown(local_path);
    if (!IsQueryPage(link) && !EndsWithSlash(link) && !IsListedFileType(link)) {
        crawl::List2.AddItem(link);
        return;
    }

    if (LastChar(link) == "?") link.pop_back();
    if (ClimbsAboveHost(link)) return;
    if (text::Contains(link, "/../")) ResolveAndRecord(link);
    text::ReplaceAllIn(link, "/./", "/");
    // Together, these two turn "http:/" into "http://".
    text::ReplaceAllIn(link, "http://", "http:/");
    text::ReplaceAllIn(link, "http:/", "http://");
    if (!IsFiltered(link)) Enqueue(link, local_path, queue_list);
}

bool IsFiltered(const std::string& link) {
    const std::string lowered = LowerTrim(link);
    return std::any_of(
        bas_General::KeywordFilters.begin(), bas_General::KeywordFilters.end(),
        [&](const std::string& filter) { return text::Contains(lowered, LowerTrim(filter)); });
}

bool IsQueryPage(const std::string& link) {
    return text::Contains(LowerTrim(link), ".php?");
}

bool IsListedFileType(const std::string& link) {
    const std::string extension(text::Trim(GetExtension(text::LowerCase(link))));
    return text::Contains(crawl::FileTypeSet, ":" + extension + ":");
}

bool FileExists(const std::string& path) {
    // Check both forms. Otherwise a name in which "www." appears only after cleaning would never be
    // found, and its link would be queued for ever. The same goes for every name below a target
    // folder that contains "www.".
    const std::string written = WrittenForm(path);
    return bas_Output::HasMirrorFile(path) ||
           (written != path && bas_Output::HasMirrorFile(written));
}

}  // namespace bas_Extractor
