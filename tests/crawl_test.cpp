#include <gtest/gtest.h>

#include <map>
#include <set>

#include "engine/site_start.h"
#include "tests/fakes/crawl_fixture.h"

// Whole crawls over an in-memory network.

namespace {

using Mirror = std::map<std::string, std::string>;

class Crawl : public fakes::CrawlTest {
  protected:
    void SetUp() override { window.JoinNetwork(network); }

    /// The files that a whole crawl of site.com saves into an empty folder.
    Mirror CrawlAfresh(const char* connections = "4") {
        window.Reload();
        BlankDisk();
        system.boxes.asked.clear();
        window.txt_max = connections;
        Start("site.com");
        for (int seconds = 0; seconds < 600 && !window.start_enabled; ++seconds)
            loop.Advance(1000);
        EXPECT_EQ(system.boxes.asked.size(), 1U) << "the crawl does not end";
        Mirror saved = system.files.files;
        // The order of the records is the order of arrival, which may differ.
        std::erase_if(saved, [](const auto& file) { return file.first.ends_with(".txt"); });
        return saved;
    }
};

TEST_F(Crawl, SavesTheSiteOnceWithAnyNumberOfConnections) {
    const std::pair<const char*, const char*> pages[] = {
        {"", "<a href=\"a.html\"><a href='dir/b.html'><img src=p.gif>"},
        {"a.html", "<a href=dir/><a href='https://site.com/no'>"},
        {"dir/", "<a href='../a.html'><a href=b.html><a href=c.php?x=1>"},
        {"dir/b.html", "<a href=\"b.html\"><a href=\"gone.html\">"},
        {"dir/c.php?x=1", "<a href='http://www.site.com/p.gif'>"},
        {"p.gif", "GIF href=' \"dir/b.html"}};
    for (const auto& [path, page] : pages)
        network.PutPage(std::string("www.site.com/") + path, page);
    const Mirror saved = CrawlAfresh();
    std::set<std::string> names;
    for (const auto& [path, bytes] : saved)
        names.insert(path);
    const std::string site = "c:\\Websites\\site.com\\";
    EXPECT_EQ(names,
              (std::set<std::string>{site + "index.html", site + "a.html", site + "p.gif",
                                     site + "dir\\index.html", site + "dir\\b.html",
                                     site + "dir\\c.php_x=1.html", site + "dir\\gone.html"}));
    EXPECT_EQ(saved.at(site + "dir\\gone.html"), "Not found.\r\n");
    EXPECT_EQ(network.requests().size(), names.size()) << "each file is requested once";
    for (const char* connections : {"1", "24"})
        EXPECT_EQ(CrawlAfresh(connections), saved) << connections;
}

}  // namespace
