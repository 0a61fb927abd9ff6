#include "engine/endings.h"

#include <gtest/gtest.h>

#include "tests/fakes/crawl_fixture.h"

namespace {

using fakes::CrawlTest;
using Asked = fakes::ScriptedBoxes::Asked;
using platform::BoxAnswer;
using platform::BoxStyle;
using platform::SocketState;

class Endings : public CrawlTest {
  protected:
    /// Expects that this question was asked `count` times, and nothing else.
    void ExpectAsked(std::size_t count, const std::string& message, const std::string& title) {
        const Asked question{message, BoxStyle::InformationYesNo, title};
        EXPECT_EQ(system.boxes.asked, std::vector(count, question));
    }
};

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
    EXPECT_EQ(crawl::FilesDone, 1) << "each timeout would count as another file";
    EXPECT_EQ(crawl::Slots[1].Attempts, 1);
}

TEST_F(Endings, TheCompletionBoxOffersTheMirror) {
    for (const BoxAnswer answer : {BoxAnswer::Yes, BoxAnswer::No}) {
        system.boxes.asked.clear();
        system.processes.folders.clear();
        system.boxes.answers.push_back(answer);
        Start("www.site.com/a.html");
        Respond(1, "<a href='b.html'>");
        loop.Advance(20);
        Respond(1, "");
        ExpectAsked(1,
                    "The website has been downloaded.\r\n\r\n"
                    "Would you like to browse the download directory?",
                    "Done.");
        EXPECT_EQ(window.label6, "Website Downloaded!");
        EXPECT_EQ(window.label3, "2 Files") << "the counters are correct when the box appears";
        const std::size_t shown = answer == BoxAnswer::Yes ? 1 : 0;
        EXPECT_EQ(system.processes.folders, std::vector<std::string>(shown, "C:\\Websites\\"));
        BlankDisk();
    }
}

TEST_F(Endings, StopNOWClearsTheJobs) {
    Start("www.site.com/a.html");
    window.txt_max = "3";
    Queue({"www.site.com/b.html", "www.site.com/c.html", "www.site.com/d.html"});
    crawl::Slots[24].Url = "www.site.com/e.html";
    loop.Advance(60);
    bas_Connections::StopNOW();
    for (int i = 1; i <= 24; ++i) {
        EXPECT_EQ(crawl::Slots[i].Url + crawl::Slots[i].Host + crawl::Slots[i].Path, "");
        EXPECT_EQ(window.rows[i].status, "Not Connected.");
    }
    EXPECT_EQ(crawl::Slots[2].Attempts, 1) << "numbers are not cleared";
    EXPECT_TRUE(window.start_enabled && window.text1_enabled && window.text1_focused);
}

TEST_F(Endings, AsksBeforeAStop) {
    Start("www.site.com/a.html");
    system.boxes.answers.push_back(BoxAnswer::No);
    bas_Connections::AskStop();
    EXPECT_EQ(window.Sock(1).State(), SocketState::Connecting);
    EXPECT_EQ(window.reloads, 0);

    system.boxes.answers.push_back(BoxAnswer::Yes);
    int reloads_at_yield = 0;
    loop.AtYield(1, [&] { reloads_at_yield = window.reloads; });
    bas_Connections::AskStop();
    EXPECT_EQ(reloads_at_yield, 1) << "events run in the new window";
    EXPECT_TRUE(crawl::Stopping);
    EXPECT_EQ(window.label6, "Operation Cancelled.");
    EXPECT_FALSE(window.pause_enabled);
    EXPECT_TRUE(bas_Connections::Form_Unload()) << "a reload asks nothing";
    ExpectAsked(2, "Are you sure you want to cancel downloading the current website?",
                "Stop Download");
}

TEST_F(Endings, AsksBeforeAnExitAndStopsTheCrawl) {
    Start("www.site.com/a.html");
    Respond(1, "<a href='b.html'>");
    const std::string placeholder = "C:\\Websites\\site.com\\b.html.tmp";
    ASSERT_NE(system.files.At(placeholder), "(none)");
    system.boxes.answers.push_back(BoxAnswer::No);
    EXPECT_FALSE(bas_Connections::Form_Unload());
    ExpectAsked(1, "Are you sure you want to exit?", "Exit Vantorin");
    EXPECT_FALSE(window.start_enabled);
    EXPECT_NE(system.files.At(placeholder), "(none)");

    system.boxes.answers.push_back(BoxAnswer::Yes);
    EXPECT_TRUE(bas_Connections::Form_Unload());
    EXPECT_EQ(system.files.At(placeholder), "(none)");
    EXPECT_TRUE(window.start_enabled && window.list1_shown);
    EXPECT_FALSE(window.tmrMove().Enabled());

    window.Sock(24).Connect("late.com", 80);
    system.boxes.answers.push_back(BoxAnswer::Yes);
    EXPECT_TRUE(bas_Connections::Form_Unload());
    EXPECT_EQ(window.Sock(24).State(), SocketState::Closed);
}

}  // namespace
