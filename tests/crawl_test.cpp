#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>

#include "engine/site_start.h"
#include "tests/fakes/crawl_fixture.h"

// Whole crawls over an in-memory network, and what may happen at each place where events run.

namespace {

using fakes::CrawlTest;
using platform::BoxAnswer;

using Mirror = std::map<std::string, std::string>;

class Crawl : public CrawlTest {
  protected:
    void SetUp() override {
        network.PutPage("www.site.com/", "<a href=\"a.html\"><a href='dir/b.html'><img src=p.gif>");
        network.PutPage("www.site.com/a.html", "<a href=dir/><a href='https://site.com/no'>");
        network.PutPage("www.site.com/dir/",
                        "<a href='../a.html'><a href=b.html><a href=c.php?x=1>");
        network.PutPage("www.site.com/dir/b.html", "<a href=\"b.html\"><a href=\"gone.html\">");
        network.PutPage("www.site.com/dir/c.php?x=1", "<a href='http://www.site.com/p.gif'>");
        network.PutPage("www.site.com/p.gif", "GIF href=' \"dir/b.html");
        window.JoinNetwork(network);
    }

    /// Lets the crawl run until the completion box, a stop, or a generous deadline.
    void RunToTheEnd() {
        for (int seconds = 0; seconds < 600 && !window.start_enabled; ++seconds)
            loop.Advance(1000);
        EXPECT_TRUE(window.start_enabled) << "the crawl does not come to an end";
    }

    Mirror Mirrored() const {
        Mirror saved = system.files.files;
        // The order of the records is the order of arrival, which may differ.
        std::erase_if(saved, [](const auto& file) { return file.first.ends_with(".txt"); });
        return saved;
    }

    Mirror CrawlUndisturbed() {
        Start("site.com");
        RunToTheEnd();
        return Mirrored();
    }

    /// Forgets everything, as a program that was just started.
    void StartOver() {
        window.Reload();
        BlankDisk();
        system.boxes.asked.clear();
        crawl::Stopping = false;
    }
};

TEST_F(Crawl, SavesTheSiteOnce) {
    const Mirror saved = CrawlUndisturbed();
    std::set<std::string> names;
    for (const auto& [path, bytes] : saved)
        names.insert(path);
    const std::string site = "c:\\Websites\\site.com\\";
    EXPECT_EQ(names,
              (std::set<std::string>{site + "index.html", site + "a.html", site + "p.gif",
                                     site + "dir\\index.html", site + "dir\\b.html",
                                     site + "dir\\c.php_x=1.html", site + "dir\\gone.html"}));
    EXPECT_EQ(saved.at(site + "dir\\gone.html"), "Not found.\r\n");
    ASSERT_EQ(system.boxes.asked.size(), 1U);
    EXPECT_EQ(network.requests().size(), names.size()) << "each file is asked for once";
}

TEST_F(Crawl, IsTheSameWithOneConnectionAndWithAll) {
    const Mirror four = CrawlUndisturbed();
    for (const char* count : {"1", "24"}) {
        SCOPED_TRACE(count);
        StartOver();
        window.txt_max = count;
        EXPECT_EQ(CrawlUndisturbed(), four);
    }
}

/// Runs the crawl again and again, doing something at its first yield, its second, and so on.
class Disturbed : public Crawl {
  protected:
    void SetUp() override {
        Crawl::SetUp();
        network.PutSilent("www.site.com/dir/gone.html");  // timeouts yield, too
    }
    void AtEveryYield(const std::function<void()>& disturb, const std::function<void()>& check) {
        const int before = loop.Yields();
        undisturbed = CrawlUndisturbed();
        const int yields = loop.Yields() - before;
        ASSERT_GT(yields, 50);
        for (int n = 1; n <= yields; ++n) {
            SCOPED_TRACE(n);
            StartOver();
            system.boxes.answers.push_back(BoxAnswer::Yes);
            bool done = false;
            loop.AtYield(n, [&] {
                done = true;
                disturb();
            });
            Start("site.com");
            RunToTheEnd();
            // A disturbance may change how often later code yields, not whether this yield comes.
            ASSERT_TRUE(done);
            check();
            if (HasFailure()) return;
        }
    }
    Mirror undisturbed;
};

TEST_F(Disturbed, AStopEndsTheCrawlWhereverItComes) {
    AtEveryYield([] { bas_Connections::AskStop(); },
                 [&] {
                     EXPECT_TRUE(bas_Connections::AllSocketsClosed());
                     const auto requests = network.requests().size();
                     loop.Advance(120000);
                     EXPECT_EQ(network.requests().size(), requests) << "something runs on";
                     EXPECT_EQ(system.files.At("C:\\Websites\\_SearchData\\.txt"), "(none)");
                     for (const auto& [path, bytes] : Mirrored()) {
                         EXPECT_TRUE(path.ends_with(".tmp") || undisturbed.at(path) == bytes)
                             << path;
                     }
                 });
}

TEST_F(Disturbed, ACrawlStartedRightAfterAStopIsWhole) {
    AtEveryYield(
        [&] {
            bas_Connections::AskStop();
            BlankDisk();
            Start("site.com");
        },
        [&] { EXPECT_EQ(Mirrored(), undisturbed); });
}

TEST_F(Disturbed, NothingIsLostToWhatComesInBetween) {
    const std::function<void(int)> disturbances[] = {
        [](int slot) { bas_Connections::tmrOut_Timer(slot); },
        [](int slot) { bas_Connections::ProcessResponse("<a href='late.html'>", slot); },
        [](int) { bas_Connections::SiteComplete(); }};
    for (const auto& disturb : disturbances) {
        const bool ends_early = &disturb == &disturbances[2];
        StartOver();
        AtEveryYield(
            [&] {
                for (int slot = 1; slot <= 4; ++slot)
                    disturb(slot);
            },
            [&] {
                EXPECT_EQ(system.boxes.asked.size(), 1U) << "completion is reported once";
                if (ends_early) return;
                for (const auto& [path, bytes] : undisturbed)
                    EXPECT_TRUE(system.files.files.contains(path)) << path;
            });
    }
}

TEST_F(Crawl, PagesThatLeadToThemselvesEnd) {
    const char* pages[] = {"<meta http-equiv=refresh content='0; url=http://www.site.com/'>",
                           "<a href='w{ww.x.html'><a href='w*ww.y.html'>",
                           "<a href='.{./.{./out.html'><a href='.*./.*./.*./out.html'>",
                           "<a href='.www../.www../.www../out.html'><a href='..\\..\\out.html'>"};
    for (const char* page : pages) {
        SCOPED_TRACE(page);
        StartOver();
        network.PutPage("www.site.com/", page);
        CrawlUndisturbed();
        for (const auto& [path, bytes] : system.files.files) {
            EXPECT_TRUE(path.starts_with("c:\\Websites\\") || path.starts_with("c:\\program\\"))
                << path;
        }
        EXPECT_LT(network.requests().size(), 60U);
    }
}

TEST_F(Crawl, ALinkWhoseFileCannotBeWrittenIsFetchedOnce) {
    network.PutPage("www.site.com/", "<a href=bad.html>");
    network.PutPage("www.site.com/bad.html", "<a href=bad.html>");
    system.files.refused = {"c:\\Websites\\site.com\\bad.html",
                            "c:\\Websites\\site.com\\bad.html.tmp"};
    CrawlUndisturbed();
    EXPECT_EQ(network.requests().size(), 2U);
}

}  // namespace
