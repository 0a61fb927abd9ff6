#include "engine/scheduler.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/fakes/crawl_fixture.h"

namespace {

using fakes::CrawlTest;

class Scheduler : public CrawlTest {
  protected:
    /// A crawl is running, no connection is busy and nothing is queued.
    void SetUp() override {
        Start("www.site.com");
        window.Sock(1).Close();
    }
};

TEST_F(Scheduler, SplitsAnAddressIntoHostAndPath) {
    const std::string long_path = "/" + std::string(1200, 'a') + ".html";
    const struct {
        std::string address, url, host, path;
    } cases[] = {{"www.site.com", "www.site.com", "www.site.com", "//"},
                 {"www.site.com/about", "www.site.com/about", "www.site.com", "/about/"},
                 {"www.site.com/cat.jpeg", "www.site.com/cat.jpg", "www.site.com", "/cat.jpg"},
                 {"www.site.com/cat.JPEG", "www.site.com/cat.JPEG", "www.site.com", "/cat.JPEG"},
                 {" HTTP://site.com\\a\\b.html", "site.com/a/b.html", "site.com", "/a/b.html"},
                 {"/rooted.html", "/rooted.html", "", "/rooted.html"},
                 {"site.com" + long_path, "site.com" + long_path, "site.com",
                  long_path.substr(0, 999) + "/"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.address);
        bas_Connections::ConnectNext(c.address);
        const crawl::ConnectionSlot& slot = crawl::Slots[1];
        EXPECT_EQ(slot.Url, c.url);
        EXPECT_EQ(slot.Host, c.host);
        EXPECT_EQ(slot.Path, c.path);
        EXPECT_EQ(window.rows[1].status, "Connecting to " + c.host);
        EXPECT_EQ(window.Sock(1).Port(), 80);
        window.Sock(1).Close();
    }
}

TEST_F(Scheduler, StartsNothingWhenNoCrawlRuns) {
    bas_Connections::StopNOW();
    // A scan that was running at the stop may still queue links, and closing the pause dialog
    // starts the timer.
    Queue({"a.com/1."});
    window.tmrMove().SetEnabled(true);
    loop.Advance(100);
    EXPECT_EQ(crawl::List1.Count(), 1U);
    EXPECT_TRUE(bas_Connections::AllSocketsClosed());
}

TEST_F(Scheduler, ReadsTheConnectionCountAnewEachTime) {
    const std::pair<const char*, int> cases[] = {{"4", 4},     {"0", 0},  {"-3", -3}, {"2.5", 2},
                                                 {"3.5", 4},   {"", 0},   {"abc", 0}, {"5 abc", 5},
                                                 {"1e300", 0}, {"24", 24}};
    for (const auto& [text, count] : cases) {
        window.txt_max = text;
        EXPECT_EQ(bas_Connections::ConnectionsCount(), count) << text;
        EXPECT_EQ(bas_Connections::FindFreeSlot(), count >= 1 ? 1 : 0) << text;
    }
}

TEST_F(Scheduler, RefusesTypedCountsThatAreTooHighOrNoNumbers) {
    const std::pair<std::string, std::string> cases[] = {
        {"24", "4"},  {"23.5", "4"}, {"x", "4"},   {"", "4"},     {"5x", "4"},
        {"23", "23"}, {"0", "0"},    {"-1", "-1"}, {" 7 ", " 7 "}};
    const fakes::ScriptedBoxes::Asked refusal{"Must be a number of connections from 1 to 24",
                                              platform::BoxStyle::Stop, "Try Again"};
    for (const auto& [typed, kept] : cases) {
        system.boxes.asked.clear();
        window.txt_max = typed;
        bas_Connections::txtMax_Change();
        EXPECT_EQ(window.txt_max, kept) << typed;
        EXPECT_EQ(system.boxes.asked, std::vector(typed == kept ? 0 : 1, refusal)) << typed;
    }
}

TEST_F(Scheduler, ChoosingFewerConnectionsResetsTheRowsBeyond) {
    for (int i = 1; i <= 24; ++i)
        window.SetRowStatus(i, "busy");
    window.txt_max = "23";
    bas_Connections::txtMax_Click();
    EXPECT_EQ(window.rows[23].status, "busy");
    EXPECT_EQ(window.rows[24].status, "Not Connected.");
    EXPECT_EQ(window.rows[24].size, "0 KB");
    EXPECT_EQ(window.rows[24].received, "-");
    window.txt_max = "no number";
    bas_Connections::txtMax_Click();
    EXPECT_EQ(window.rows[1].status, "busy");
}

}  // namespace
