// Compares what a save writes with the plain form of its rules, a replacement at a time
// (libFuzzer).
//
//     cmake --preset fuzz && ninja -C build/fuzz save_fuzz && build/fuzz/bench/save_fuzz
//     -max_len=400
#include <array>
#include <utility>

#include "bench/fuzz_input.h"
#include "bench/literal_scan.h"
#include "crawl/crawl_state.h"
#include "output/save_file.h"
#include "tests/fakes/fake_system.h"

namespace {

using literal::Lower;
using literal::Replace;
using std::string_view_literals::operator""sv;

constexpr std::string_view kWords[] = {
    "\r\n\r\n"sv, "\r\n"sv, "\r"sv,     "\n"sv,      ".php"sv,    ".php?"sv,   ".PHP?"sv,
    ".asp"sv,     "'"sv,    "\""sv,     ">"sv,       "href="sv,   "href ="sv,  "href = "sv,
    "href= "sv,   "../"sv,  "'../"sv,   "\"../"sv,   "http://"sv, "HTTP://"sv, "www."sv,
    "site.com"sv, "/"sv,    "applet"sv, "script "sv, "cancel"sv,  ".html"sv,   "appappletlet"sv,
};

constexpr struct {
    const char *address, *path;
} kFiles[] = {
    {"\\www.site.com/", "site.com\\index.html"},
    {"\\www.site.com/d/e.html", "site.com\\d\\e.html"},
    {"\\www.site.com/a.php?x=1", "site.com\\a.php_x=1.html"},
    {"\\site.com/a.PHP", "site.com\\a.PHP"},
    {"\\site.com/a.asp", "site.com\\a.asp.html"},
    {"\\site.com/d/a.txt", "site.com\\d\\a.txt"},
    {"\\site.com/d/a.gif", "site.com\\d\\a.gif"},
};

constexpr const char* kHosts[] = {"www.site.com",    "site.com", " HTTP://site.com/",
                                  "http://site.com", "www.",     ""};

bool Has(const std::string& s, const char* part) {
    return s.find(part) != std::string::npos;
}

std::string Without(const std::string& page, std::string host) {
    host = literal::Trim(host);
    if (Lower(host.substr(0, 7)) != "http://") host = "http://" + host;
    host = Replace(Replace(host, "\\", "/"), "www.", "");
    if (host.back() == '/') host.pop_back();
    host += "/";
    return Replace(Replace(page, host, ""), Replace(host, "http://", "http://www."), "");
}

std::string FileOf(const std::string& received, const std::string& path, const std::string& host) {
    if (Lower(literal::Trim(received)) == "cancel") return "(none)";
    const std::size_t blank_line = received.find("\r\n\r\n");
    const std::size_t start = blank_line == std::string::npos ? 3 : blank_line + 4;
    std::string page = start < received.size() ? received.substr(start) : "";
    bool has_lines = false;
    for (const char* const type : {".htm", ".php", ".shtm", ".asp", ".txt"}) {
        has_lines = has_lines || Has(path, type);
    }
    if (has_lines) page = Replace(Replace(page, "\n", "\r\n"), "\r", "\r\n");
    const std::pair<const char*, const char*> rules[] = {
        {".php'", ".php.html'"}, {".php\"", ".php.html\""}, {".php>", ".php.html>"},
        {".asp'", ".asp.html'"}, {".asp\"", ".asp.html\""}, {".asp>", ".asp.html>"},
        {".php?", ".php_"},      {".PHP?", ".PHP_"}};
    for (const auto& [find, with] : rules) {
        page = Replace(page, find, with);
    }
    const std::pair<const char*, const char*> climbing[] = {
        {"href=\"../", "href=\""},    {"href =\"../", "href =\""}, {"href = \"../", "href = \""},
        {"href= \"../", "href= \""},  {"href='../", "href=\""},    {"href ='../", "href =\""},
        {"href = '../", "href = \""}, {"href= '../", "href =\""}};
    const bool top_level = !Has(path, "\\d\\");
    for (const auto& [find, with] : climbing) {
        if (top_level) page = Replace(page, find, with);
    }
    page = Without(page, host);
    return Replace(Replace(page, "applet", ""), "script ", " !-- script ") + "\r\n";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const auto& file = kFiles[data[0] % std::size(kFiles)];
    const std::string host = kHosts[data[1] % std::size(kHosts)];
    const std::string received = fuzz::TextOf({data + 2, size - 2}, kWords);

    fakes::FakeSystem system;
    system.files.Have("C:\\w");
    crawl::TargetFolder = "C:\\w\\";
    crawl::SiteHost = "site.com";
    crawl::Slots[1].Host = host;
    std::string address = file.address;
    bas_Output::SaveFile(received, address, 1);
    fuzz::MustBeEqual("save of " + received, system.files.At(std::string("C:\\w\\") + file.path),
                      FileOf(received, file.path, host));
    return 0;
}
