#include "extractor/admission.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "crawl/crawl_state.h"
#include "output/mirror_files.h"
#include "output/save_file.h"
#include "setup/keyword_filters.h"
#include "tests/fakes/fake_system.h"

namespace {

using namespace bas_Extractor;
using std::string_literals::operator""s;

constexpr const char* kPlaceholder =
    "This file is queued to be downloaded, or did not download correctly.\r\n";

using Addresses = std::vector<std::string>;

class AdmissionTest : public testing::Test {
  protected:
    AdmissionTest() { BeginCrawl("C:\\Mirror\\"); }

    void BeginCrawl(const std::string& folder) {
        crawl::SiteHost = "site.com";
        crawl::TargetFolder = folder;
        crawl::FileTypeSet = ":.html::.gif::.jpg:";
        crawl::List1.Clear();
        crawl::List2.Clear();
        system.files = {};
        system.files.Have(folder);
        bas_Output::BeginMirror();
    }
    void Admit(const std::string& link) { AdmitLink("http://" + link, crawl::List1); }

    fakes::FakeSystem system;
};

TEST_F(AdmissionTest, QueuesListsOrDrops) {
    const struct {
        std::string link, queued, placeholder, listed;
    } cases[] = {{"HTTP://www.SITE.com/x.html", "www.SITE.com/x.html", "SITE.com\\x.html", ""},
                 {"http:/site.com/b.html", "http://site.com/b.html", "http:\\site.com\\b.html", ""},
                 {"other.com/x.html?of=site.com", "", "", "other.com/x.html?of=site.com"},
                 {"site.com\\dir\\ ", "site.com/dir/index.html", "site.com\\dir\\index.html", ""},
                 {"site.com/l.PHP?", "site.com/l.PHP", "site.com\\l.PHP_", ""},
                 {"site.com/a/./b.html", "site.com/a/b.html", "site.com\\a\\.\\b.html", ""},
                 {"site.com.de/../x.html", "site.com.de/x.html", "site.com.de\\..\\x.html", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.link);
        BeginCrawl("C:\\Mirror\\");
        Admit(c.link);
        Admit(c.link);  // a queued link is known from then on; a listed one is listed again
        EXPECT_EQ(fakes::Items(crawl::List1), c.queued.empty() ? Addresses{} : Addresses{c.queued});
        EXPECT_EQ(fakes::Items(crawl::List2), Addresses(c.listed.empty() ? 0 : 2, c.listed));
        EXPECT_EQ(system.files.files.empty(), c.queued.empty());
        if (!c.queued.empty()) {
            EXPECT_EQ(system.files.At("C:\\Mirror\\" + c.placeholder + ".tmp"), kPlaceholder);
            EXPECT_EQ(system.files.At("C:\\Mirror\\log.txt"), c.queued + "\r\n");
        }
    }
}

TEST_F(AdmissionTest, DropsLinksThatClimbOutOfAHost) {
    for (const std::string end :
         {"info", "tk", "uk", "au", "mil", "gov", "edu", "org", "net", "com"}) {
        Admit("site.com." + end + "/../x.html");
        EXPECT_TRUE(crawl::List1.Empty()) << end;
    }
}

TEST_F(AdmissionTest, FiltersMatchAnywhereInAnyCaseAndAfterResolving) {
    bas_General::KeywordFilters[2] = "  ";
    bas_General::KeywordFilters[100] = " Ads ";
    for (const char* link : {"site.com/ads/x.gif", "site.com/LoADs/a/../b.gif", "site.com/ad.gif",
                             "site.com/ads/../c.gif"}) {
        Admit(link);
    }
    EXPECT_EQ(fakes::Items(crawl::List1), (Addresses{"site.com/ad.gif", "site.com/c.gif"}));
    EXPECT_EQ(system.files.At("C:\\Mirror\\transdd.txt"),
              "site.com/LoADs/a/../b.gif\r\nsite.com/LoADs/b.gif\r\n\r\n"
              "site.com/ads/../c.gif\r\nsite.com/c.gif\r\n\r\n");
}

TEST_F(AdmissionTest, QueuesThenWritesPlaceholderAndLogThenYieldsOnce) {
    std::string steps;
    crawl::List1.on_change = [&] { steps += crawl::List1.Item(0) + "\n"; };
    system.files.on_write = [&](const std::string& path) { steps += path + "\n"; };
    system.loop.AtYield(1, [&] { steps += "yield"; });
    Admit("site.com/x.html");
    EXPECT_EQ(steps,
              "site.com/x.html\nc:\\Mirror\\site.com\\x.html.tmp\nc:\\Mirror\\log.txt\nyield");
    EXPECT_EQ(system.loop.Yields(), 1);
}

TEST_F(AdmissionTest, AnyOfThreeFilesMakesALinkKnown) {
    for (const char* file : {"1.bmp.html", "2.bmp", "3.bmp.tmp"}) {
        system.files.Have(std::string("c:\\Mirror\\site.com\\") + file, "");
        Admit("www.site.com/" + std::string(file, 5));
    }
    EXPECT_TRUE(crawl::List2.Empty()) << "a link that is not known would be listed";
}

TEST_F(AdmissionTest, LooksAtNothingOutsideTheFolder) {
    for (const char* name : {"there", "late"}) {
        system.files.Have(std::string("c:\\outside\\") + name + ".html", "");
    }
    system.files.on_look = [](const std::string& path) {
        EXPECT_TRUE(path == "c:" || path.starts_with("c:\\Mirror")) << path;
    };
    const Addresses links = {"site.com/a/../../../outside/there.html",
                             "site.com/a/../../../outside/missing.html",
                             "site.com/.{./.{./outside/late.html"};
    for (const std::string& link : links) {
        Admit(link);
        Admit(link);
    }
    EXPECT_EQ(crawl::List1.Count(), links.size()) << "each once, whether its file exists or not";
}

TEST_F(AdmissionTest, AFolderDoesNotMakeALinkKnown) {
    system.files.Have("C:\\Mirror\\site.com\\x.html\\");
    Admit("site.com/x.html");
    Admit("site.com/x.html");
    EXPECT_EQ(crawl::List1.Count(), 1u);
    std::string address = "\\site.com/x.html";
    bas_Output::SaveFile("\r\n\r\npage", address, 1);
    Admit("site.com/x.html");
    EXPECT_EQ(crawl::List1.Count(), 1u) << "it cannot be saved, and is not queued again";
}

TEST_F(AdmissionTest, LinksThatGrowForEverEndAndCostNoMoreEach) {
    // Folders that can be created, one that cannot, and two with names similar to "." and "..".
    for (const auto& name :
         {std::string(20, 'd') + "/", std::string(290, 'd') + "/", "d/.*/e/"s, "d/..e/"s}) {
        BeginCrawl("C:\\Mirror\\");
        int looks = 0;
        system.files.on_look = [&looks](const std::string&) { ++looks; };
        std::string base = "site.com/";
        for (std::size_t queued = 0; queued == crawl::List1.Count() && base.size() < 5000;
             ++queued, base += name) {
            looks = 0;
            Admit(base + "x.html");
            EXPECT_LE(looks, 25) << queued << " folders deep";
        }
        const std::size_t dropped = ("http://" + base + "x.html").size() - name.size();
        EXPECT_GT(dropped, 4096u);
        EXPECT_LE(dropped - name.size(), 4096u);
    }
}

TEST_F(AdmissionTest, QueuesALinkOnceEvenIfItsFileHasAnotherName) {
    // "www." is removed from every written path, wherever it comes from.
    BeginCrawl("C:\\www.mirror\\");
    for (const char* link : {"site.com/a.html", "site.com/w{ww.x.html"}) {
        Admit(link);
        Admit(link);
    }
    EXPECT_EQ(fakes::Items(crawl::List1), (Addresses{"site.com/a.html", "site.com/w{ww.x.html"}));
    EXPECT_EQ(system.files.At("C:\\mirror\\site.com\\x.html.tmp"), kPlaceholder);
}

}  // namespace
