#include "extractor/link_scanner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "engine/crawl_state.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/fake_loop.h"
#include "text/text.h"

namespace {

using bas_Extractor::ExtractLinks;
using text::ConsumableText;
using Addresses = std::vector<std::string>;

Addresses Items(const platform::ListItems& list) {
    Addresses items;
    for (std::size_t i = 0; i < list.Count(); ++i) {
        items.push_back(list.Item(i));
    }
    return items;
}

/// A host with an empty mirror and a crawl of site.com.
struct Crawl {
    Crawl() {
        crawl::SiteHost = "site.com";
        crawl::TargetFolder = "C:\\Mirror\\";
        crawl::FileTypeSet = ":.html::.gif:";
        host.files.Have("C:\\Mirror\\");
    }
    fakes::FakeLoop loop;
    fakes::FakeHost host{loop};
};

void Scan(ConsumableText& page, std::string base = "http://site.com/dir/") {
    ExtractLinks(page, crawl::List1, base);
}

/// What a page on http://site.com/dir/ adds to the queue.
Addresses LinksOf(const std::string& html) {
    const Crawl crawl;
    ConsumableText page(html);
    Scan(page);
    return Items(crawl::List1);
}

TEST(LinkScannerTest, FindsTheLinksOfAPage) {
    const std::string letters(400, 'x');
    const struct {
        const char* why;
        std::string html;
        Addresses queued;
    } cases[] = {
        {"nothing", "<p>plain</p>", {}},
        {"blanks and double quotes", "<a href = \"page.html\">", {"site.com/dir/page.html"}},
        {"no quotes", "<a href=page.html>x", {"site.com/dir/page.html"}},
        {"fragment only", "<a href=\"#top\">", {}},
        {"fragment cut", "<a href=\"page.html#top\">", {"site.com/dir/page.html"}},
        {"secure", "<a href=\"https://site.com/a.html\">", {}},
        {"secure anywhere", "<a href=\"a.html?https\">", {}},
        {"mail", "<a href=\"mailto:me@site.com\">", {}},
        {"ftp", "<a href=\"ftp://site.com/x.html\">", {}},
        {"irc", "<a href='irc:site.com/x.html'>", {}},
        {"skipped schemes tell case", "<a href='IRC:x.html'>", {"site.com/dir/IRC:x.html"}},
        {"root-relative is not", "<a href='/img/a.gif'>", {"site.com/dir/img/a.gif"}},
        {"refresh, absolute",
         "<meta http-equiv=\"refresh\" content=\"0; url=http://site.com/b.html\">",
         {"http://site.com/b.html"}},
        {"refresh, relative", "<meta content=\"0;URL=b.html\">", {}},
        {"empty values", "<a href=\"\"><a href=''>", {"site.com/dir/index.html"}},
        {"blanks inside quotes end it", "<a href=\" a.html\">", {"site.com/dir/index.html"}},
        {"blanks before", "<a href=   a.html>", {"site.com/dir/a.html"}},
        {"absolute", "<a href='http://www.site.com//a///b.html'>", {"www.site.com/a//b.html"}},
        {"upper-case scheme gets the base",
         "<a href='HTTP://site.com/a.html'>",
         {"site.com/dir/HTTP:/site.com/a.html"}},
        {"backslashes", "<a href='sub\\a.html'>", {"site.com/dir/sub/a.html"}},
        {"line breaks vanish", "<a\r\nhref\r\n='a\r.ht\nml'>", {"site.com/dir/a.html"}},
        {"line breaks inside", "<a href='a\r\n.ht\nml'>", {"site.com/dir/a.html"}},
        {"image",
         "<img src=a.gif><img SRC = \"b.gif\">",
         {"site.com/dir/a.gif", "site.com/dir/b.gif"}},
        {"no blank before src", "<img\tsrc=a.gif>", {}},
        {"unknown spellings", "<a HrEf=a.html><img Src=a.gif><b BACKground=c.gif>", {}},
        {"background",
         "<body background=a.gif><td BackGround = 'b.gif'>",
         {"site.com/dir/a.gif", "site.com/dir/b.gif"}},
        {"closer than ten", "href=a href=b.html", {}},
        {"just ten apart",
         "href=12345href=b.html",
         {"site.com/dir/12345href=b.html", "site.com/dir/b.html"}},
        {"window", "<a href='" + letters + ".html'>", {}},
        {"window cuts inside",
         "<a href=" + letters.substr(0, 295) + ".html.html>",
         {"site.com/dir/" + letters.substr(0, 295) + ".html"}},
        {"at the very end", "text href", {"site.com/dir/index.html"}},
        {"semicolon, brace",
         "href=a.html;x}    href=b.html}",
         {"site.com/dir/a.html", "site.com/dir/b.html"}},
        {"one opening quote", "<a href=\"'a.html'\">", {"site.com/dir/index.html"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(LinksOf(c.html), c.queued) << c.why;
    }
}

TEST(LinkScannerTest, BaseGainsASlashAndThePageIsConsumed) {
    const Crawl crawl;
    ConsumableText page("<a href='a.html'>A</a> rest");
    std::string base = "http://site.com/dir";
    ExtractLinks(page, crawl::List1, base);
    EXPECT_EQ(base, "http://site.com/dir/");
    EXPECT_EQ(page.View(), "ml'>A</a> rest") << "ten characters on from the link";
    EXPECT_EQ(Items(crawl::List1), Addresses{"site.com/dir/a.html"});
    ExtractLinks(page, crawl::List1, base);
    EXPECT_EQ(base, "http://site.com/dir/");
    EXPECT_EQ(page.View(), "ml'>A</a> rest");
}

TEST(LinkScannerTest, YieldsFiveTimesALinkAndOnceForEachQueued) {
    Crawl crawl;
    ConsumableText page("<a href='a.html'>A</a> <a href='#top'>top</a>");
    Scan(page);
    EXPECT_EQ(crawl.loop.Yields(), 11);
}

/// The forty rows as they are, one pass each.
std::string RewriteRowByRow(std::string page) {
    for (const char* row :
         {"href =",        "href = ",       "href=",         "HREF=",        "HREF = ",
          "HREF =",        "HREF= ",        "hRef=",         "hRef = ",      "hRef =",
          "hRef= ",        "Href=",         "Href = ",       "Href =",       "Href= ",
          "Href= ",        "hREF=",         "hREF = ",       "hREF =",       "hREF= ",
          "background =",  "background=",   "background = ", "background= ", "BACKGROUND =",
          "BACKGROUND=",   "BACKGROUND = ", "BACKGROUND= ",  "BackGround =", "BackGround=",
          "BackGround = ", "BackGround= ",  " SRC=",         " src=",        " SRC =",
          " src =",        " SRC = ",       " src = ",       " SRC= ",       " src= "}) {
        page = text::ReplaceAll(page, row, "href=");
    }
    page = text::ReplaceAll(page, "\"", "'");
    for (const char* gone : {"\r\n", "\n", "\r"}) {
        page = text::ReplaceAll(page, gone, "");
    }
    for (const char* refresh : {"; url=", ";url=", "; URL=", ";URL="}) {
        page = text::ReplaceAll(page, refresh, "a href='http://");
    }
    return page;
}

const char* const kPieces[] = {
    "href",       "HREF",       "hRef",      "Href",   "hREF", "HrEf",   "background",
    "BACKGROUND", "BackGround", "src",       "SRC",    " ",    " ",      "=",
    "=",          " = ",        " =",        "\"",     "'",    "\r\n",   "\n",
    "\r",         "; url=",     ";URL=",     "url=",   "h",    "hre",    "f=",
    "#",          "http://",    "site.com/", "a.html", "/../", ".php?x",
};

std::string RandomPage(std::mt19937& random, std::size_t pieces) {
    std::string page;
    for (std::size_t i = random() % pieces; i > 0; --i) {
        if (random() % 8 == 0) {
            page += static_cast<char>(random() % 256);
        } else {
            page += kPieces[random() % std::size(kPieces)];
        }
    }
    return page;
}

TEST(LinkScannerTest, RewritingEqualsTheRowsOneByOne) {
    std::mt19937 random(11);
    Crawl crawl;
    for (int round = 0; round < 3000; ++round) {
        const std::string html = RandomPage(random, 30);
        const std::string expected = RewriteRowByRow(html);
        ConsumableText page(html);
        // The first yield comes before the first link is consumed.
        std::string rewritten;
        crawl.loop.AtYield(1, [&] {
            rewritten = page.View();
            page.Clear();
        });
        Scan(page);
        if (text::Contains(expected, "href")) {
            ASSERT_EQ(rewritten, expected) << html;
        } else {
            ASSERT_EQ(page.View(), expected) << html;
            crawl.loop.DoEvents();
        }
    }
}

const char* const kThreeLinks =
    "<a href='one.html'>1</a> <a href='#top'>t</a> <a href='two.html'>2</a> the end of the page";
const Addresses kOneTwo = {"site.com/dir/one.html", "site.com/dir/two.html"};
constexpr int kYieldsOfThreeLinks = 17;

/// Runs `interfere` at every yield of a scan of three links in turn, then `check`.
void AtEveryYield(const std::function<void(ConsumableText&)>& interfere,
                  const std::function<void(const ConsumableText&)>& check) {
    for (int nth = 1; nth <= kYieldsOfThreeLinks; ++nth) {
        SCOPED_TRACE("yield " + std::to_string(nth));
        Crawl crawl;
        ConsumableText page(kThreeLinks);
        bool interfered = false;
        crawl.loop.AtYield(nth, [&] {
            interfered = true;
            interfere(page);
        });
        Scan(page);
        EXPECT_TRUE(interfered);
        check(page);
    }
}

TEST(LinkScannerTest, APageEmptiedMeanwhileEndsTheScan) {
    AtEveryYield([](ConsumableText& page) { page.Clear(); },
                 [](const ConsumableText& page) {
                     EXPECT_TRUE(page.Empty());
                     EXPECT_LE(crawl::List1.Count(), 2u);
                     for (std::size_t i = 0; i < crawl::List1.Count(); ++i) {
                         EXPECT_EQ(crawl::List1.Item(i), kOneTwo[i]);
                     }
                 });
}

TEST(LinkScannerTest, WhatIsAppendedMeanwhileIsScannedAsItIs) {
    AtEveryYield(
        [](ConsumableText& page) {
            page.Append("\r\n<a href='late\r\n.html'> <a HREF='no.html'>");
        },
        [](const ConsumableText&) {
            EXPECT_EQ(Items(crawl::List1),
                      (Addresses{kOneTwo[0], kOneTwo[1], "site.com/dir/late.html"}));
        });
}

TEST(LinkScannerTest, AnotherPageInItsPlaceIsLeftAlone) {
    const std::string other = "<p>another download's \"<a href='new.html'>x";
    AtEveryYield([&other](ConsumableText& page) { page.Assign(other); },
                 [&other](const ConsumableText& page) {
                     EXPECT_EQ(page.View(), other);
                     for (const std::string& link : Items(crawl::List1)) {
                         EXPECT_NE(link, "site.com/dir/new.html");
                     }
                 });
}

TEST(LinkScannerTest, ASecondScanInsideTheFirstTakesTheRestOfThePage) {
    AtEveryYield([](ConsumableText& page) { Scan(page, "http://site.com/dir/"); },
                 [](const ConsumableText& page) {
                     EXPECT_EQ(Items(crawl::List1), kOneTwo) << "each once";
                     EXPECT_FALSE(text::Contains(page.View(), "href"));
                 });
}

TEST(LinkScannerTest, AScanOfAnotherPageInsideDoesNotMixWithIt) {
    AtEveryYield(
        [](ConsumableText&) {
            ConsumableText other("<a href='other.html'><a href='one.html'>");
            Scan(other, "http://www.site.com/dir");
        },
        [](const ConsumableText&) {
            Addresses queued;
            for (const std::string& link : Items(crawl::List1)) {
                queued.push_back(text::ReplaceAll(link, "www.", ""));
            }
            std::sort(queued.begin(), queued.end());
            EXPECT_EQ(queued, (Addresses{kOneTwo[0], "site.com/dir/other.html", kOneTwo[1]}));
        });
}

TEST(LinkScannerTest, AStopMeanwhileClearsTheQueueAndTheRestIsStillAppended) {
    std::size_t appended_after = 0;
    AtEveryYield([](ConsumableText&) { crawl::List1.Clear(); },
                 [&appended_after](const ConsumableText&) {
                     const Addresses queued = Items(crawl::List1);
                     appended_after += queued.size();
                     EXPECT_TRUE(std::equal(queued.rbegin(), queued.rend(), kOneTwo.rbegin()));
                 });
    // Both links after each of the first 3 yields, one after each of the next 11.
    EXPECT_EQ(appended_after, 3u * 2 + 11u);
}

TEST(LinkScannerTest, RandomPagesAndInterferenceEndAndStayOnTheSite) {
    std::mt19937 random(23);
    for (int round = 0; round < 1500; ++round) {
        Crawl crawl;
        ConsumableText page(RandomPage(random, 60));
        const std::string more = RandomPage(random, 20);
        const int what = static_cast<int>(random() % 4);
        crawl.loop.AtYield(1 + static_cast<int>(random() % 12), [&] {
            if (what == 0) page.Append(more);
            if (what == 1) page.Clear();
            if (what == 2) page.Assign(more);
            if (what == 3) Scan(page, more);
        });
        Scan(page);
        // Resolving a ".." may take the host with it, but not without a record.
        const std::string resolved = crawl.host.files.At("C:\\Mirror\\transdd.txt");
        for (const std::string& link : Items(crawl::List1)) {
            ASSERT_TRUE(text::Contains(text::LowerCase(link), "site.com") ||
                        text::Contains(resolved, link))
                << link;
        }
    }
}

TEST(LinkScannerTest, TimeGrowsWithThePageOnly) {
    const auto repeat = [](const std::string& unit, std::size_t size) {
        std::string page;
        while (page.size() < size) {
            page += unit;
        }
        return page;
    };
    std::string many;
    for (int i = 0; i < 5000; ++i) {
        many += "<a href='p" + std::to_string(i) + ".html'>";
    }
    const std::string pages[] = {
        many,
        repeat("href", 100'000),
        repeat("href=", 100'000),
        repeat("<a href='same.html'>\r\n", 100'000),
        repeat(" src = \"; url=", 100'000),
        repeat("no link at all. ", 3'000'000) + "<a href='last.html'>",
    };
    const auto start = std::chrono::steady_clock::now();
    for (const std::string& html : pages) {
        Crawl crawl;
        ConsumableText page(html);
        Scan(page);
        EXPECT_FALSE(text::Contains(page.View(), "href"));
        if (html == many) {
            EXPECT_EQ(crawl::List1.Count(), 5000u);
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

}  // namespace
