#include "engine/endings.h"

#include <gtest/gtest.h>

#include "engine/scheduler.h"
#include "tests/fakes/crawl_fixture.h"

namespace {

using fakes::CrawlTest;
using platform::SocketState;

constexpr int kTimeout = 20000;

using Endings = CrawlTest;

TEST_F(Endings, ASilentServerIsTriedThreeTimesAndTheCrawlCompletes) {
    Start("www.site.com/a.html");
    for (int attempt = 1; attempt <= 3; ++attempt) {
        SCOPED_TRACE(attempt);
        EXPECT_EQ(crawl::Slots[1].Attempts, attempt);
        EXPECT_EQ(window.rows[1].status, "Connecting to www.site.com");
        window.Sock(1).PeerAccepts();
        loop.Advance(kTimeout - 1);
        EXPECT_EQ(crawl::FilesDone, attempt - 1);
        loop.Advance(1);
        EXPECT_EQ(crawl::FilesDone, attempt);
    }
    EXPECT_EQ(window.rows[1].received, "-");
    EXPECT_EQ(Saved("a.html"), "(none)")
        << "the timeout text is given a name that no folder ever has";
    EXPECT_EQ(system.boxes.asked.size(), 1U);
    loop.Advance(10 * kTimeout);
    EXPECT_EQ(crawl::FilesDone, 3) << "no timer runs on after the crawl";
}

TEST_F(Endings, ATimeoutDuringOurOwnWorkIsIgnored) {
    Start("www.site.com/a.html");
    constexpr int kIdle = 2;
    for (int nth = 1; nth <= 12; ++nth) {
        loop.AtYield(nth, [] { bas_Connections::tmrOut_Timer(1); });
        loop.AtYield(nth, [] { bas_Connections::tmrOut_Timer(kIdle); });
    }
    Respond(1, "<a href='b.html'>");
    EXPECT_EQ(Saved("a.html"), "<a href='b.html'>\r\n");
    EXPECT_EQ(crawl::List1.Count(), 1U);
    EXPECT_EQ(crawl::FilesDone, 1) << "each timeout would count as one more";
    EXPECT_EQ(crawl::Slots[1].Attempts, 1);
}

TEST_F(Endings, ASlotThatIdlesAfterASuccessTimesOutTooButHarmsNothing) {
    Start("www.site.com/a.html");
    window.txt_max = "2";
    Queue({"www.site.com/b.html"});
    loop.Advance(20);
    Respond(1, "good");
    window.Sock(2).PeerAccepts();
    loop.Advance(kTimeout);
    EXPECT_EQ(crawl::Slots[1].Attempts, 2);
    EXPECT_EQ(window.Sock(1).State(), SocketState::Connecting) << "its last address is tried again";
    EXPECT_EQ(Saved("a.html"), "good\r\n");
    Respond(1, "again");
    EXPECT_EQ(Saved("a.html"), "again\r\n");
}

}  // namespace
