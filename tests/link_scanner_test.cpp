#include "extractor/link_scanner.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "crawl/crawl_state.h"
#include "tests/fakes/fake_system.h"
#include "text/text.h"

namespace {

using bas_Extractor::ExtractLinks;
using std::string_literals::operator""s;
using text::ConsumableText;
using Addresses = std::vector<std::string>;

/// A system with an empty mirror and a crawl of site.com.
struct Crawl {
    Crawl() {
        crawl::SiteHost = "site.com";
        crawl::TargetFolder = "C:\\Mirror\\";
        crawl::FileTypeSet = ":.html::.gif:";
        system.files.Have("C:\\Mirror\\");
    }
    fakes::FakeSystem system;
};

void Scan(ConsumableText& page, std::string base = "http://site.com/dir/") {
    ExtractLinks(page, crawl::List1, base);
}

/// The links that a page in http://site.com/dir/ adds to the queue, relative to that folder.
std::string LinksOf(const std::string& html) {
    const Crawl crawl;
    ConsumableText page(html);
    Scan(page);
    std::string links;
    for (const std::string& link : fakes::Items(crawl::List1)) {
        links += text::ReplaceAll(link, "site.com/dir/", "") + " ";
    }
    return links;
}

TEST(LinkScannerTest, FindsTheLinksOfAPage) {
    const std::string letters(295, 'x');
    for (const std::string& none :
         {"href=\"#top\""s, "href='a.html?https'"s, "href=mailto:me@site.com"s,
          "href=a href=b.html"s, "href='" + letters + "12345.html"}) {
        EXPECT_EQ(LinksOf(none), "") << none;
    }
    const struct {
        std::string html, links;
    } cases[] = {{"href=p.html#top>", "p.html "},   {"href='IRC:x.html'", "IRC:x.html "},
                 {"href=' a.html'", "index.html "}, {"href=\"'a.html'\"", "index.html "},
                 {"href=   a.html>", "a.html "},    {"href\r\n='a\r.ht\nml'>", "a.html "}};
    for (const auto& c : cases) {
        EXPECT_EQ(LinksOf(c.html), c.links) << c.html;
    }
    EXPECT_EQ(LinksOf("href=12345href=b.html"), "12345href=b.html b.html ");
    EXPECT_EQ(LinksOf("href='http://www.site.com///org///net///a///b.html'"),
              "www.site.com/org/net/a//b.html ");
    EXPECT_EQ(LinksOf("href=" + letters + ".html.html"), letters + ".html ");
}

TEST(LinkScannerTest, ConsumesThePageAndYieldsFiveTimesPerLinkAndOncePerQueuedOne) {
    Crawl crawl;
    ConsumableText page("<a href='#top'>top</a> <a href='a.html'>A</a> rest");
    std::string base = "http://site.com/dir";
    ExtractLinks(page, crawl::List1, base);
    EXPECT_EQ(base, "http://site.com/dir/");
    EXPECT_EQ(page.View(), "ml'>A</a> rest") << "it continues ten characters after the link";
    EXPECT_EQ(crawl.system.loop.Yields(), 11);
}

TEST(LinkScannerTest, RewritesAttributesInAFixedOrder) {
    Crawl crawl;
    ConsumableText page(
        "href = 1 HREF = 2 hRef= 3 HrEf=4\t<a\r\n Src=5 src = 6 SRC=7> BackGround =8 \"hr\nef=9 "
        "0; url=a 0;\rURL=b 0; Url=c");
    std::string rewritten;
    crawl.system.loop.AtYield(1, [&] { rewritten = page.View(); });
    Scan(page);
    EXPECT_EQ(rewritten,
              "href= 1 href=2 href= 3 HrEf=4\t<a Src=5href= 6href=7> href=8 'href=9 "
              "0a href='http://a 0a href='http://b 0; Url=c");
}

TEST(LinkScannerTest, AppendsAndOtherScansAtAYieldDoNoHarm) {
    const struct {
        std::function<void(ConsumableText&)> interfere;
        std::string also_queued;
    } cases[] = {
        {[](ConsumableText& page) { page.Append("\r\n<a href='late\r\n.html'> HREF='no.html'"); },
         "site.com/dir/late.html"},
        {[](ConsumableText& page) { Scan(page); }, ""},
        {[](ConsumableText&) {
             ConsumableText other("<a href='other.html'><a href='one.html'>");
             Scan(other);
         },
         "site.com/dir/other.html"}};
    constexpr int kYields = 17;
    for (int nth = 1; nth <= kYields * std::ssize(cases); ++nth) {
        const auto& c = cases[nth % std::ssize(cases)];
        Crawl crawl;
        ConsumableText page("<a href='one.html'>1</a> <a href='#top'>t</a> <a href='two.html'>2");
        crawl.system.loop.AtYield(1 + nth % kYields, [&] { c.interfere(page); });
        Scan(page);
        EXPECT_GE(crawl.system.loop.Yields(), kYields);
        Addresses queued = fakes::Items(crawl::List1);
        EXPECT_EQ(std::erase(queued, c.also_queued), c.also_queued.empty() ? 0u : 1u);
        EXPECT_EQ(queued, (Addresses{"site.com/dir/one.html", "site.com/dir/two.html"}));
        EXPECT_FALSE(text::Contains(page.View(), "href"));
    }
}

TEST(LinkScannerTest, LeavesAReplacementTextAlone) {
    const std::string another = " href='another.html'";
    for (int nth = 1; nth <= 6; ++nth) {
        Crawl crawl;
        ConsumableText page("<a href='one.html'>");
        crawl.system.loop.AtYield(nth, [&] { page.Assign(another); });
        Scan(page);
        EXPECT_EQ(page.View(), another);
        EXPECT_EQ(crawl::List1.Count(), nth < 4 ? 0U : 1U)
            << "the fourth yield comes after the link is queued";
    }
}

// A scanner that restarts at each of these would take hours.
TEST(LinkScannerTest, ScansLongPages) {
    std::string many, bare, refresh;
    for (int i = 0; i < 5000; ++i) {
        many += "<a href='p" + std::to_string(i) + ".html'>";
        bare += "hrefhref=hrefhref=";
        refresh += " src = \"; url= src = \"; url=";
    }
    for (const std::string& html : {many, bare, refresh, std::string(3'000'000, ' ') + many}) {
        EXPECT_EQ(text::Contains(LinksOf(html), "p4999.html "), text::Contains(html, "p4999"));
    }
}

}  // namespace
