#include "extractor/admission.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "engine/crawl_state.h"
#include "output/mirror_files.h"
#include "setup/keyword_filters.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/fake_loop.h"

namespace {

using namespace bas_Extractor;
using std::string_literals::operator""s;

constexpr const char* kPlaceholder =
    "This file is queued to be downloaded, or did not download correctly.\r\n";

std::vector<std::string> Items(const platform::ListItems& list) {
    std::vector<std::string> items;
    for (std::size_t i = 0; i < list.Count(); ++i) {
        items.push_back(list.Item(i));
    }
    return items;
}

class AdmissionTest : public testing::Test {
  protected:
    AdmissionTest() { BeginCrawl("C:\\Mirror\\"); }

    void BeginCrawl(const std::string& folder) {
        crawl::SiteHost = "site.com";
        crawl::TargetFolder = folder;
        crawl::FileTypeSet = ":.html::.gif::.jpg:";
        host_.files.Have(folder);
        bas_Output::BeginMirror();
    }
    void Admit(const std::string& link) { AdmitLink(link, crawl::List1); }

    fakes::FakeLoop loop_;
    fakes::FakeHost host_{loop_};
};

using Addresses = std::vector<std::string>;

TEST_F(AdmissionTest, QueuesListsOrDrops) {
    const struct {
        std::string link, queued, listed, placeholder;
    } cases[] = {
        {"http://site.com/dir/page.html", "site.com/dir/page.html", "", "site.com\\dir\\page.html"},
        {"HTTP://www.SITE.com/x.html", "www.SITE.com/x.html", "", "SITE.com\\x.html"},
        {"http://http://site.com/x.html", "site.com/x.html", "", "site.com\\x.html"},
        {"http://other.com/x.html", "", "", ""},
        {"http://other.com/x.html?from=site.com", "", "other.com/x.html?from=site.com", ""},
        {"http://notsite.com/x.html", "notsite.com/x.html", "", "notsite.com\\x.html"},
        {"http://site.com\\dir\\x.html ", "site.com/dir/x.html", "", "site.com\\dir\\x.html"},
        {"http://site.com/dir/", "site.com/dir/index.html", "", "site.com\\dir\\index.html"},
        {"http://site.com/PIC.GIF", "site.com/PIC.GIF", "", "site.com\\PIC.GIF"},
        {"http://site.com/pic.bmp", "", "site.com/pic.bmp", ""},
        {"http://site.com", "", "site.com", ""},
        {"http://site.com/list.php?id=3", "site.com/list.php?id=3", "", "site.com\\list.php_id=3"},
        {"http://site.com/LIST.PHP?id=3", "site.com/LIST.PHP?id=3", "", "site.com\\LIST.PHP_id=3"},
        {"http://site.com/list.php?", "site.com/list.php", "", "site.com\\list.php_"},
        {"http://site.com/page.html?", "", "site.com/page.html?", ""},
        {"http://site.com/a<b>&c.html", "site.com/a<b>&c.html", "", "site.com\\a_b_c.html"},
        {"http://site.com/a/./b.html", "site.com/a/b.html", "", "site.com\\a\\.\\b.html"},
        {"http://site.com/../x.html", "", "", ""},
        {"http://site.com/a/b/../c.html", "site.com/a/c.html", "", "site.com\\a\\b\\..\\c.html"},
        // The doubled scheme of a page that sends its reader on.
        {"http://http:/site.com/b.html", "http://site.com/b.html", "", "http:\\site.com\\b.html"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.link);
        fakes::FakeHost fresh(loop_);
        crawl::SiteHost = "site.com";
        crawl::TargetFolder = "C:\\Mirror\\";
        crawl::FileTypeSet = ":.html::.gif::.jpg:";
        fresh.files.Have("C:\\Mirror\\");
        Admit(c.link);
        Admit(c.link);  // a queued link is known from then on; a listed one is listed again
        EXPECT_EQ(Items(crawl::List1), c.queued.empty() ? Addresses{} : Addresses{c.queued});
        EXPECT_EQ(Items(crawl::List2),
                  c.listed.empty() ? Addresses{} : (Addresses{c.listed, c.listed}));
        EXPECT_EQ(fresh.files.files.size(),
                  c.queued.empty() ? 0u : (c.link.find("/../") == std::string::npos ? 2u : 3u));
        if (!c.queued.empty()) {
            EXPECT_EQ(fresh.files.At("C:\\Mirror\\" + c.placeholder + ".tmp"), kPlaceholder);
            EXPECT_EQ(fresh.files.At("C:\\Mirror\\log.txt"), c.queued + "\r\n");
        }
    }
}

TEST_F(AdmissionTest, DropsClimbsOutOfAHost) {
    for (const char* domain :
         {".info", ".tk", ".uk", ".au", ".mil", ".gov", ".edu", ".org", ".net", ".com"}) {
        Admit("http://site.com" + std::string(domain) + "/../x.html");
    }
    EXPECT_TRUE(crawl::List1.Empty());
    EXPECT_TRUE(host_.files.files.empty());
    Admit("http://site.com.de/../x.html");
    EXPECT_EQ(Items(crawl::List1), Addresses{"site.com.de/x.html"});
}

TEST_F(AdmissionTest, ResolvedLinksLeaveBothFormsAndAnEmptyLine) {
    Admit("http://site.com/a/b/../c.html");
    EXPECT_EQ(host_.files.At("C:\\Mirror\\transdd.txt"),
              "site.com/a/b/../c.html\r\nsite.com/a/c.html\r\n\r\n");
    bas_General::KeywordFilters[1] = "BANNER";
    Admit("http://site.com/banner/x/../c.html");
    EXPECT_EQ(host_.files.At("C:\\Mirror\\transdd.txt"),
              "site.com/a/b/../c.html\r\nsite.com/a/c.html\r\n\r\n"
              "site.com/banner/x/../c.html\r\nsite.com/banner/c.html\r\n\r\n");
    EXPECT_EQ(Items(crawl::List1), Addresses{"site.com/a/c.html"});
}

TEST_F(AdmissionTest, FiltersMatchAnywhereAndInAnyCase) {
    bas_General::KeywordFilters[2] = "  ";
    bas_General::KeywordFilters[100] = " Ads ";
    for (const char* dropped : {"http://site.com/ads/x.gif", "http://site.com/LoADs.html"}) {
        EXPECT_TRUE(IsFiltered(dropped));
        Admit(dropped);
    }
    EXPECT_FALSE(IsFiltered("http://site.com/ad.html"));
    EXPECT_TRUE(crawl::List1.Empty());
    EXPECT_TRUE(host_.files.files.empty());
}

TEST_F(AdmissionTest, QueueComesFirstThenPlaceholderThenLogThenOneYield) {
    std::vector<std::string> steps;
    crawl::List1.on_change = [&] { steps.push_back("queue " + crawl::List1.Item(0)); };
    host_.files.on_write = [&](const std::string& path) { steps.push_back("write " + path); };
    loop_.AtYield(1, [&] { steps.push_back("yield"); });
    Admit("http://site.com/x.html");
    EXPECT_EQ(steps, (std::vector<std::string>{"queue site.com/x.html",
                                               "write c:\\Mirror\\site.com\\x.html.tmp",
                                               "write c:\\Mirror\\log.txt", "yield"}));
    EXPECT_EQ(loop_.Yields(), 1);
}

TEST_F(AdmissionTest, AnyOfThreeFilesMakesALinkKnown) {
    const struct {
        std::string file, link;
    } cases[] = {{"site.com\\list.php_id=1.html", "http://site.com/list.php?id=1"},
                 {"site.com\\pic.gif", "http://www.site.com/pic.gif"},
                 {"site.com\\later.html.tmp", "http://site.com/later.html"},
                 {"site.com\\pic.bmp", "http://site.com/pic.bmp"}};
    for (const auto& c : cases) {
        host_.files.Have("C:\\Mirror\\" + c.file, "");
        Admit(c.link);
    }
    host_.files.Have("C:\\Mirror\\site.com\\folder.html");
    Admit("http://site.com/folder.html");
    EXPECT_TRUE(crawl::List1.Empty());
    EXPECT_TRUE(crawl::List2.Empty());
}

/// Keeps the paths that it was asked about, and denies the first of them.
class DoubtfulFiles : public fakes::MemoryFiles {
  public:
    mutable std::vector<std::string> asked;
    mutable int denials = 0;

    std::optional<std::uint64_t> FileLength(std::string_view path) const override {
        asked.emplace_back(path);
        if (denials > 0 && denials--) return std::nullopt;
        return MemoryFiles::FileLength(path);
    }
};

TEST_F(AdmissionTest, KnownTestAsksTwiceAndInItsOrder) {
    DoubtfulFiles files;
    const platform::Services services{loop_,           files,           host_.settings,
                                      host_.page_text, host_.processes, host_.boxes};
    platform::InstallHost(&services);
    files.Have("C:\\Mirror\\site.com\\x.gif.tmp", "");
    files.denials = 5;
    Admit("http://site.com/x.gif");
    const std::string path = "C:\\Mirror\\site.com\\x.gif";
    EXPECT_EQ(files.asked, (std::vector<std::string>{path + ".html", path + ".html", path, path,
                                                     path + ".tmp", path + ".tmp"}));
    EXPECT_TRUE(crawl::List1.Empty());
    files.denials = 1;
    EXPECT_TRUE(FileExists(path + ".tmp"));
    files.denials = 2;
    EXPECT_FALSE(FileExists(path + ".tmp"));
}

TEST_F(AdmissionTest, ALinkIsQueuedOnceAlsoWhereItsNameIsNotTheOneWritten) {
    // "www." goes from everything that is written, wherever it comes from.
    Admit("http://site.com/w{ww.x.html");
    Admit("http://site.com/w{ww.x.html");
    EXPECT_EQ(Items(crawl::List1), Addresses{"site.com/w{ww.x.html"});
    EXPECT_EQ(host_.files.At("C:\\Mirror\\site.com\\x.html.tmp"), kPlaceholder);

    crawl::List1.Clear();
    BeginCrawl("C:\\www.mirror\\");
    Admit("http://site.com/a.html");
    Admit("http://site.com/a.html");
    EXPECT_EQ(Items(crawl::List1), Addresses{"site.com/a.html"});

    // What an earlier crawl left there counts too.
    crawl::List1.Clear();
    bas_Output::BeginMirror();
    host_.files.Have("C:\\mirror\\site.com\\b.html", "");
    Admit("http://site.com/b.html");
    EXPECT_TRUE(crawl::List1.Empty());
}

TEST_F(AdmissionTest, AFailedWriteCostsThatWriteOnlyAndTheLinkIsNotQueuedAgain) {
    host_.files.refused.insert("c:\\Mirror\\site.com\\x.html.tmp");
    Admit("http://site.com/x.html");
    Admit("http://site.com/x.html");
    EXPECT_EQ(Items(crawl::List1), Addresses{"site.com/x.html"});
    EXPECT_EQ(host_.files.At("C:\\Mirror\\log.txt"), "site.com/x.html\r\n");

    host_.files.disk_full = true;
    for (int i = 0; i < 2; ++i) {
        Admit("http://site.com/a/b/../y.html");
        Admit("http://site.com/" + std::string(300, 'n') + ".html");
        Admit("http://site.com/nul\0.html"s);
    }
    EXPECT_EQ(crawl::List1.Count(), 4u);
    EXPECT_EQ(crawl::List1.Item(1), "site.com/a/y.html");
}

TEST_F(AdmissionTest, RoutingTests) {
    for (const char* yes : {"a/b.HTML", "x.gif ", ".jpg"})
        EXPECT_TRUE(IsListedFileType(yes)) << yes;
    for (const char* no : {"site.com/dir/file", "a.htm", "a.html?x", "html"})
        EXPECT_FALSE(IsListedFileType(no)) << no;
    EXPECT_TRUE(IsQueryPage("site.com/a.PHP?x=1"));
    EXPECT_FALSE(IsQueryPage("site.com/a.php"));
    EXPECT_FALSE(IsQueryPage("site.com/a.asp?x.php"));
}

}  // namespace
