#include <gtest/gtest.h>

#include <set>

#include "tests/fakes/crawl_fixture.h"

// Whole crawls over an in-memory network.

namespace {

class Crawl : public fakes::CrawlTest {
  protected:
    /// Crawls the site on an empty disk until the completion box, or a generous deadline.
    void CrawlSite() {
        BlankDisk();
        Start("site.com");
        for (int seconds = 0; seconds < 600 && !window.start_enabled; ++seconds)
            loop.Advance(1000);
        EXPECT_TRUE(window.start_enabled) << "the crawl does not come to an end";
    }
};

TEST_F(Crawl, SavesTheSiteOnceOverOneConnectionAndOverAll) {
    network.PutPage("www.site.com/", "<a href=\"a.html\"><a href='dir/b.html'><img src=p.gif>");
    network.PutPage("www.site.com/a.html", "<a href=dir/><a href='https://site.com/no'>");
    network.PutPage("www.site.com/dir/", "<a href='../a.html'><a href=b.html><a href=c.php?x=1>");
    network.PutPage("www.site.com/dir/b.html", "<a href=\"b.html\"><a href=\"gone.html\">");
    network.PutPage("www.site.com/dir/c.php?x=1", "<a href='http://www.site.com/p.gif'>");
    network.PutPage("www.site.com/p.gif", "GIF href=' \"dir/b.html");
    window.JoinNetwork(network);
    const std::set<std::string> site = {"a.html",     "dir\\b.html",    "dir\\c.php_x=1.html",
                                        "index.html", "dir\\gone.html", "dir\\index.html",
                                        "p.gif"};
    std::size_t crawls = 0;
    for (const char* count : {"1", "24"}) {
        window.txt_max = count;
        CrawlSite();
        std::set<std::string> saved;
        const std::string folder = "c:\\Websites\\site.com\\";
        for (const auto& [path, bytes] : system.files.files) {
            if (path.starts_with(folder)) saved.insert(path.substr(folder.size()));
        }
        EXPECT_EQ(saved, site);
        EXPECT_EQ(Saved("dir\\gone.html"), "Not found.\r\n");
        EXPECT_EQ(system.boxes.asked.size(), ++crawls);
        EXPECT_EQ(network.requests().size(), crawls * site.size()) << "each is asked for once";
    }
}

TEST_F(Crawl, PagesThatLeadToThemselvesEnd) {
    window.JoinNetwork(network);
    for (const char* page : {
             "<meta http-equiv=refresh content='0; url=http://www.site.com/'>",
             "<a href='w{ww.x.html'><a href='w*ww.y.html'>",
             "<a href='.{./.{./out.html'><a href='.*./.*./.*./out.html'>",
             "<a href='.www../.www../.www../out.html'><a href='..\\..\\out.html'>",
         }) {
        SCOPED_TRACE(page);
        network.PutPage("www.site.com/", page);
        CrawlSite();
        for (const auto& [path, bytes] : system.files.files) {
            EXPECT_TRUE(path.starts_with("c:\\Websites\\") || path.starts_with("c:\\program\\"))
                << path;
        }
        EXPECT_LT(network.requests().size(), 60U);
    }
}

}  // namespace
