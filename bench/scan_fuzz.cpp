// Compares the link scanner and admission with a slow literal statement of them (libFuzzer).
//
//     cmake --preset fuzz && ninja -C build/fuzz scan_fuzz && build/fuzz/bench/scan_fuzz
//     -max_len=400
#include <algorithm>

#include "bench/fuzz_input.h"
#include "bench/literal_scan.h"
#include "crawl/crawl_state.h"
#include "extractor/link_scanner.h"
#include "tests/fakes/fake_system.h"

namespace {

using std::string_view_literals::operator""sv;

constexpr std::string_view kWords[] = {
    "href"sv,       "=\""sv,        "='"sv,
    " = "sv,        " ="sv,         "= "sv,
    "HREF"sv,       "hRef"sv,       "Href"sv,
    "hREF"sv,       "background"sv, "BACKGROUND"sv,
    "BackGround"sv, " src"sv,       " SRC"sv,
    "; url="sv,     ";URL="sv,      "http://"sv,
    "HTTP://"sv,    "http:\\"sv,    "https"sv,
    "www."sv,       "site.com"sv,   "SITE.COM/"sv,
    "other.org/"sv, "/../"sv,       "../"sv,
    "/./"sv,        "a.html"sv,     "b.html"sv,
    ".php?"sv,      ".php"sv,       "index.html"sv,
    "dir/"sv,       "d.com/.."sv,   "//"sv,
    "\\"sv,         "\r\n"sv,       "ads"sv,
    "irc:"sv,       ".gif"sv,       ".tmp"sv,
    "com//"sv,      "''"sv,         "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"sv,
};

constexpr const char* kBases[] = {"http://www.site.com/dir/", "site.com", "www.site.com/a/b",
                                  "http://site.com//"};

/// A crawl of site.com whose mirror has some files already.
struct Crawl {
    Crawl() {
        crawl::SiteHost = "site.com";
        crawl::TargetFolder = "C:\\Mirror\\";
        crawl::FileTypeSet = ":.html::.gif:";
        bas_General::KeywordFilters[1] = " Ads";
        system.files.Have("C:\\Mirror\\site.com\\dir\\b.html", "known");
        system.files.Have("C:\\Mirror\\site.com\\a.php_x.html", "known");
        bas_Output::BeginMirror();
    }
    /// All that the scan left behind.
    std::string Outcome(std::string_view page, const std::string& base) const {
        std::string outcome = "base " + base + "\nrest " + std::string(page);
        for (const std::string& item : fakes::Items(crawl::List1)) {
            outcome += "\nqueued " + item;
        }
        for (const std::string& item : fakes::Items(crawl::List2)) {
            outcome += "\nlisted " + item;
        }
        for (const auto& [path, contents] : system.files.files) {
            outcome += "\nfile " + path + ": " + contents;
        }
        return outcome;
    }
    fakes::FakeSystem system;
};

std::string Scan(const std::string& text, std::string base) {
    const Crawl crawl;
    text::ConsumableText page(text);
    bas_Extractor::ExtractLinks(page, crawl::List1, base);
    return crawl.Outcome(page.View(), base);
}

std::string ScanLiterally(std::string text, std::string base) {
    const Crawl crawl;
    literal::ExtractLinks(text, base);
    return crawl.Outcome(text, base);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string base = kBases[data[0] % std::size(kBases)];
    const std::string page = fuzz::TextOf({data + 1, size - 1}, kWords);
    fuzz::MustBeEqual("scan of " + page, Scan(page, base), ScanLiterally(page, base));
    return 0;
}
