// Feeds arbitrary site data to admission and the saver, on the real disk, in a scratch folder that
// contains a user's files, and checks that none of those changed (libFuzzer).
//
//     cmake --preset fuzz && ninja -C build/fuzz mirror_fuzz
//     TMPDIR=/dev/shm build/fuzz/bench/mirror_fuzz
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include "bench/fuzz_input.h"
#include "crawl/crawl_state.h"
#include "extractor/addresses.h"
#include "extractor/admission.h"
#include "output/mirror_files.h"
#include "output/records.h"
#include "output/save_file.h"
#include "platform/system_files.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using std::string_view_literals::operator""sv;

constexpr std::string_view kWords[] = {
    "\n"sv,          "\n0"sv,          "\n1"sv,     "\n2"sv,         "www.site.com/"sv,
    "site.com"sv,    "../"sv,          "/.*./"sv,   ".{./"sv,        ".www../"sv,
    "./"sv,          "/../"sv,         ".*./"sv,    "x.php?"sv,      ".html"sv,
    ".tmp"sv,        ".bashrc"sv,      "notes"sv,   "mine.html"sv,   "other.com"sv,
    "docs/"sv,       "link/"sv,        "mirror/"sv, "filters.txt"sv, "index.html"sv,
    "secret.html"sv, "\\"sv,           "//"sv,      "http://"sv,     "www."sv,
    " "sv,           "_SearchData/"sv, "c:"sv,      "z:"sv,          "|"sv,
    "*"sv,           "new/deep/"sv,    "new/./"sv,  "..\\"sv,
};

/// The user's files. The folder of site.com belongs to the site, but a ".tmp" file of the user's
/// stays.
const std::map<std::string, std::string> kUsersFiles = {
    {".bashrc", "1"},
    {"secret.html", "2"},
    {"a.tmp", "3"},
    {"mirror/.bashrc", "4"},
    {"mirror/notes.tmp", "5"},
    {"mirror/mine.html", "6"},
    {"mirror/filters.txt", "7"},
    {"mirror/other.com/index.html", "8"},
    {"mirror/other.com/x.tmp", "9"},
    {"mirror/docs/mine.html", "10"},
    {"mirror/site.com/notes.tmp", "11"},
};

void MakeUsersFiles(const fs::path& root) {
    for (const auto& entry : fs::directory_iterator(root)) {
        fs::remove_all(entry);
    }
    for (const auto& [name, contents] : kUsersFiles) {
        fs::create_directories((root / name).parent_path());
        std::ofstream(root / name) << contents;
    }
    fs::create_directory_symlink(root, root / "mirror/link");
}

/// `text` with every `part` removed, from left to right.
std::string Without(std::string text, std::string_view part) {
    for (std::size_t at = 0; (at = text.find(part, at)) != text.npos;) {
        text.erase(at, part.size());
    }
    return text;
}

std::string Contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Whether a site may create this file: a record, a placeholder, or a page in a host's folder.
bool IsTheSites(const std::string& name, const std::string& contents) {
    const std::string placeholder =
        "This file is queued to be downloaded, or did not download correctly.\r\n";
    if (!name.starts_with("mirror/")) return false;
    if (name == "mirror/log.txt" || name == "mirror/transdd.txt") return true;
    if (name.starts_with("mirror/_SearchData/")) return true;
    if (name.ends_with(".tmp") && Without(contents, placeholder).empty()) return true;
    const bool in_folder = std::count(name.begin(), name.end(), '/') > 1;
    return in_folder && !name.starts_with("mirror/other.com/") &&
           !name.starts_with("mirror/docs/") && !name.starts_with("mirror/link/");
}

void MustBeUnharmed(const fs::path& root, const std::string& said) {
    for (const auto& [name, contents] : kUsersFiles) {
        fuzz::MustBeEqual(said + "\nfile " + name, Contents(root / name), contents);
    }
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string name = entry.path().lexically_relative(root).string();
        if (entry.is_symlink()) continue;
        const bool fine = entry.is_directory() ? (name + "/").starts_with("mirror/")
                                               : kUsersFiles.contains(name) ||
                                                     IsTheSites(name, Contents(entry.path()));
        fuzz::MustBeEqual(said, fine ? "" : name, "");
    }
}

/// Handles one file of the site: found in a page (0), answered (1), or timed out (2).
void Say(const std::string& line) {
    if (line.empty()) return;
    std::string address = line.substr(1);
    if (line[0] % 3 == 0) return bas_Extractor::AdmitLink(address, crawl::List1);

    bas_Extractor::StripHttp(address);
    crawl::ConnectionSlot& slot = crawl::Slots[1];
    slot.Host = address.substr(0, address.find('/'));
    slot.Path = address.substr(slot.Host.size());
    // A host of such a name would own the user's folder.
    std::string folder = Without(slot.Host, "www.");
    std::erase_if(folder, [](char c) { return std::string_view("*{}|").find(c) < 4; });
    folder = Without(folder, "www.");
    for (const char* const users : {"other.com", "docs", "link"}) {
        if (folder.find(users) != std::string::npos) return;
    }
    std::string name = (line[0] % 3 == 1 ? "\\" : " \\ ") + slot.Host + slot.Path;
    bas_Output::SaveFile("HTTP/1.0 200 OK\r\n\r\nfrom the site", name, 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fakes::TempFolder folder;
    const fs::path& root = folder.SystemPath();
    MakeUsersFiles(root);

    fakes::FakeSystem fake;
    platform::SystemFiles files(root.string());
    const platform::Services services{platform::System().events,
                                      files,
                                      fake.settings,
                                      fake.page_text,
                                      fake.processes,
                                      fake.boxes};
    platform::InstallSystem(&services);
    crawl::TargetFolder = folder.Text() + "\\mirror\\";
    crawl::SiteHost = "site.com";
    crawl::FileTypeSet = ":.html::.tmp::.txt:";
    bas_Output::BeginMirror();

    const std::string said = fuzz::TextOf({data, size}, kWords);
    std::istringstream lines(said);
    for (std::string line; std::getline(lines, line);) {
        Say(line);
    }
    MustBeUnharmed(root, said);
    bas_Output::RemoveTempFiles();
    MustBeUnharmed(root, said + "\nand the sweep");
    return 0;
}
