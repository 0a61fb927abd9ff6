#include "output/paths.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "crawl/crawl_state.h"
#include "output/mirror_files.h"
#include "platform/services.h"
#include "text/field_walker.h"
#include "text/http_scheme.h"
#include "text/text.h"

namespace bas_Output {

namespace {

std::string g_why_no_folder;

/// Creates one folder and notes it. An existing folder is a fault.
platform::FileResult CreateAndNote(const std::string& folder) {
    platform::FileResult result = platform::System().files.CreateFolder(folder);
    if (!result) return result;
    RememberMadeFolder(folder);
    crawl::MadeFolders += text::LowerCase(folder) + "*";
    return result;
}

/// Creates those of several folders that are missing. Each lies inside the one before, and `ends`
/// are the positions in `way` where their paths end, root first. Usually all exist, or all but the
/// last. Otherwise this checks as few as possible, because a site may link deeper and deeper below
/// a folder that cannot be created.
void MakeMissingFolders(const std::string& way, std::vector<std::size_t>& ends) {
    const auto folder = [&way](std::size_t end) { return way.substr(0, end); };
    const auto may_make = [&folder](std::size_t end) { return MayMakeFolder(folder(end)); };
    const auto exists = [&folder](std::size_t end) {
        return platform::System().files.FolderExists(folder(end));
    };
    // If the last one may not be created, drop all that may not: they are at the end.
    if (!ends.empty() && !may_make(ends.back())) {
        ends.erase(std::partition_point(ends.begin(), ends.end(), may_make), ends.end());
    }
    if (ends.empty() || exists(ends.back()) || CreateAndNote(folder(ends.back()))) return;
    // No folder exists below a missing one.
    auto missing = std::partition_point(ends.begin(), ends.end(), exists);
    for (; missing != ends.end() && may_make(*missing); ++missing) {
        const platform::FileResult result = CreateAndNote(folder(*missing));
        if (result) continue;
        // If something else has that name, the write that fails on it gives the better message.
        if (!platform::System().files.FileLength(folder(*missing)))
            g_why_no_folder = result.why_not;
        return;
    }
}

/// Creates a folder for every name in `path` but the last, without the name's leading blanks. A
/// name that repeats the folder before it ("a\.\", "a\\") needs none.
void MakeFoldersOnTheWayTo(std::string_view path) {
    std::string way;
    std::vector<std::size_t> ends;
    std::string_view rest = text::Trim(path);
    for (std::size_t end; (end = rest.find('\\')) != rest.npos;) {
        const std::string_view name = rest.substr(0, end);
        if (name == "..") {  // what follows is not inside what came before
            MakeMissingFolders(way, ends);
            ends.clear();
        }
        const bool is_named_again = !way.empty() && (name.empty() || name == ".");
        way.append(rest, 0, end + 1);
        if (!is_named_again) ends.push_back(way.size());
        rest = text::Trim(rest.substr(end + 1));
    }
    MakeMissingFolders(way, ends);
}

}  // namespace

std::string LocalPathOf(const std::string& path) {
    std::string local{text::Trim(path)};
    text::ReplaceAllIn(local, "www.", "");
    if (local.starts_with(text::kHttp)) local = text::Trim(text::WithoutHttp(local));
    text::ReplaceAllIn(local, "/", "\\");
    text::ReplaceAllIn(local, "\\\\", "\\");
    return local;
}

std::string MakeLocalPath(std::string& path) {
    path = LocalPathOf(path);
    crawl::SavePath = path;
    g_why_no_folder.clear();
    MakeFoldersOnTheWayTo(path);
    return "";
}

const std::string& WhyNoFolder() {
    return g_why_no_folder;
}

void MakeFolder(const std::string& folder) {
    CreateAndNote(folder);
}

std::string CleanFileName(const std::string& name) {
    std::string clean = CleanLinkName(name);
    if (!text::Contains(clean, ".")) clean += ".html";
    return clean;
}

std::string CleanLinkName(const std::string& name) {
    static constexpr std::pair<std::string_view, std::string_view> kReplacements[] = {
        {"*", ""},  {">", "_"}, {"<", "_"}, {"{", ""},   {"}", ""},   {"?", "_"},
        {"!", "_"}, {"&", "_"}, {"|", ""},  {"__", "_"}, {"__", "_"}, {"__", "_"},
    };
    std::string clean = name;
    for (const auto& [find, replacement] : kReplacements) {
        text::ReplaceAllIn(clean, find, replacement);
    }
    return clean;
}

bool IsTopLevelFile(const std::string& path) {
    const std::string lowered = text::LowerCase(text::ReplaceAll(path, "/", "\\"));
    const std::string_view subject = text::Trim(lowered);
    const std::string key = text::LowerCase(crawl::SiteHost) + "\\";
    const std::size_t found = text::InStr(subject, key);
    // Skip one character after the key, so that the "\" of a folder with an empty name does not
    // count.
    return !text::Contains(text::Mid(subject, found + key.size() + 1), "\\");
}

std::string GetToken(const std::string& text, std::int16_t index, const std::string& separator) {
    text::FieldWalker fields(text, separator);
    std::optional<std::string_view> field = fields.Next();
    for (int at = 1; field && at < index; ++at) {
        field = fields.Next();
    }
    return std::string(index < 1 ? std::string_view() : field.value_or(""));
}

}  // namespace bas_Output
