#include <gtest/gtest.h>

#include "engine/endings.h"
#include "engine/response_memory.h"
#include "tests/fakes/crawl_fixture.h"

// The outcomes that the report gives for all that can happen to an address.

namespace {

using fakes::CrawlTest;
using platform::SocketFailure;

constexpr int kTimeout = 20000;

class Outcomes : public CrawlTest {
  protected:
    /// Starts a crawl of one file.
    void SetUp() override { Start("www.site.com/a.html"); }

    /// Lets all three tries of slot 1 time out. Calls `peer` at the start of each.
    template <typename Peer>
    void FailThreeTimes(Peer peer) {
        for (int i = 0; i < 3; ++i) {
            peer();
            loop.Advance(kTimeout);
        }
    }
    /// "saved", or "error: Not Found".
    static std::string Told(std::size_t row) {
        const crawl::ReportRow& told = crawl::Report.Row(row);
        const std::string detail(told.detail);
        return std::string(NameOf(told.outcome)) + (detail.empty() ? "" : ": " + detail);
    }
};

TEST_F(Outcomes, OfAnswers) {
    const struct {
        std::string answer, told;
        int status;
        std::uint64_t bytes;
        std::optional<std::uint64_t> announced;
    } cases[] = {
        {"HTTP/1.0 200 OK\r\nContent-Length: 4\r\n\r\ntext", "saved", 200, 4, 4},
        {"HTTP/1.1 200 OK\r\nCONTENT-LENGTH:\t5 \r\n\r\ntext", "short", 200, 4, 5},
        {"HTTP/1.0 200 OK\r\nContent-Length: 5\r\nX: y", "short", 200, 0, 5},
        {"HTTP/1.0 200 OK\r\nContent-Length: -4\r\n\r\ntext", "saved", 200, 4, {}},
        {"HTTP/1.0 200 OK\r\nContent-Length: 99999999999999999999\r\n\r\nx", "saved", 200, 1, {}},
        {"HTTP/1.0 200 OK\r\nX: Content-Length: 9\r\n\r\ntext", "saved", 200, 4, {}},
        {"HTTP/1.0 200 OK\r\nLocation: /x\r\n\r\n", "saved", 200, 0, {}},
        {"HTTP/1.0 301 Moved\r\nlocation:  https://www.site.com/ \r\n\r\nx",
         "moved: https://www.site.com/",
         301,
         1,
         {}},
        {"HTTP/1.0 304 Not Modified\r\n\r\n", "moved", 304, 0, {}},
        {"HTTP/1.0 404 Not Found\r\nContent-Length: 9\r\n\r\nx", "error: Not Found", 404, 1, 9},
        {"HTTP/1.0  503  Busy \r\n\r\nx", "error: Busy", 503, 1, {}},
        {"HTTP/1.0 500", "error", 500, 0, {}},
        {"HTTP/1.0 404 Gone\n\nx", "error: Gone", 404, 1, {}},
        {"HTTP/1.0", "saved", 0, 0, {}},
        {"HTTP/1.0 many\r\n\r\nx", "saved", 0, 1, {}},
        {"\r\n\r\nHTTP/1.0 404 Not Found\r\n\r\n", "saved", 0, 26, {}},
        {"no header\n\nat all", "saved", 0, 17, {}},
        {"HTTP/1.0 200 OK\r\nContent-Length: 3\r\n\r\ntext", "saved", 200, 4, 3},
        {"HTTP/1.0 299 Last\r\n\r\n", "saved", 299, 0, {}},
        {"HTTP/1.0 300 First\r\n\r\n", "moved", 300, 0, {}},
        {"HTTP/1.0 399 Last\r\n\r\n", "moved", 399, 0, {}},
        {"HTTP/1.0 400 First\r\n\r\n", "error: First", 400, 0, {}},
        {"HTTP/1.0 599 Last\r\n\r\n", "error: Last", 599, 0, {}},
        {"HTTP/1.0 600 More\r\n\r\n", "saved: More", 600, 0, {}},
        {"answer", "saved", 0, 6, {}},
        {" Cancel ", "not written: the answer is the word \"cancel\"", 0, 8, {}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.answer);
        Start("www.site.com/a.html");
        loop.Advance(1500);
        Answer(1, c.answer);
        ASSERT_EQ(crawl::Report.Count(), 1U);
        const crawl::ReportRow& row = crawl::Report.Row(0);
        EXPECT_EQ(row.address, "www.site.com/a.html");
        EXPECT_EQ(Told(0), c.told);
        EXPECT_EQ(row.status, c.status);
        EXPECT_EQ(row.bytes, c.bytes);
        EXPECT_EQ(row.announced, c.announced);
        EXPECT_EQ(row.attempts, 1);
        EXPECT_EQ(row.took, crawl::Milliseconds(1500));
        bas_Connections::StopNOW();
    }
}

TEST_F(Outcomes, OfNoAnswer) {
    const auto fail = [this](SocketFailure why) {
        return [this, why] { window.Sock(1).ConnectionFails(why); };
    };
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[] {}, "unanswered: silent"},
        {[&] { Accept(1); }, "unanswered: silent"},
        {[&] { Accept(1), window.Sock(1).PeerSends("HTTP/1.0"); },
         "unanswered: silent after 8 bytes"},
        {[&] { Accept(1), window.Sock(1).PeerCloses(); }, "unanswered: closed without an answer"},
        {[&] { Accept(1), window.Sock(1).PeerResets(); }, "unanswered: reset"},
        {[&] { Accept(1), window.Sock(1).PeerSends("HTT"), window.Sock(1).PeerResets(); },
         "unanswered: reset after 3 bytes"},
        {fail(SocketFailure::Refused), "unanswered: refused"},
        {fail(SocketFailure::NameUnknown), "unanswered: name unknown"},
        {fail(SocketFailure::NotLookedUp), "unanswered: no name server answered"},
        {fail(SocketFailure::Unreachable), "unanswered: unreachable"},
        {fail(SocketFailure::Silent), "unanswered: silent"},
        {fail(SocketFailure::OutOfMemory), "too large: out of memory"}};
    for (const auto& [peer, told] : cases) {
        Start("www.site.com/a.html");
        FailThreeTimes(peer);
        EXPECT_EQ(Told(0), told);
        EXPECT_EQ(crawl::Report.Row(0).attempts, 3);
        EXPECT_EQ(crawl::Report.Row(0).bytes, 0U);
        EXPECT_EQ(crawl::Report.Count(), 1U);
        EXPECT_TRUE(crawl::Report.Row(0).settled) << "the crawl is over";
    }
}

TEST_F(Outcomes, AFailedTryIsReportedBeforeTheNextOne) {
    window.Sock(1).ConnectionFails(SocketFailure::NameUnknown);
    loop.Advance(20);
    EXPECT_EQ(Told(0), "under way: name unknown");
    loop.Advance(kTimeout);
    Respond(1, "x");
    EXPECT_EQ(Told(0), "saved");
    EXPECT_EQ(crawl::Report.Row(0).attempts, 2);
    EXPECT_EQ(crawl::Report.Row(0).took, crawl::Milliseconds(kTimeout + 20))
        << "from the first try on";
}

TEST_F(Outcomes, OfFilesThatCannotBeWritten) {
    const struct {
        std::function<void(fakes::MemoryFiles&)> fault;
        std::string address, told;
    } cases[] = {{[](auto& files) { files.disk_full = true; }, "www.site.com/a.html",
                  "not written: No space left on device"},
                 {[](auto& files) { files.refused = {"c:\\Websites\\site.com\\a.html"}; },
                  "www.site.com/a.html", "not written: Permission denied"},
                 {[](auto& files) { files.refused = {"c:\\Websites\\site.com\\sub"}; },
                  "www.site.com/sub/a.html", "not written: Permission denied"},
                 {[](auto& files) { files.Have("c:\\Websites\\site.com\\a.html"); },
                  "www.site.com/a.html", "not written: Is a directory"},
                 {[](auto&) {}, "www.site.com/" + std::string(300, 'n') + ".html",
                  "not written: File name too long"},
                 {[](auto&) {}, std::string("www.site.com/a\0b.html", 21),
                  "not written: not a name that this system allows"},
                 {[](auto&) {}, "www.site.com/a.php?.html/.*./.*./x.html",
                  "not written: outside the folder of its host"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.told);
        BlankDisk();
        system.files.refused.clear();
        Start(c.address);
        c.fault(system.files);
        Answer(1, "HTTP/1.0 404 Not Found\r\n\r\nx");
        EXPECT_EQ(Told(0), c.told);
        EXPECT_EQ(crawl::Report.Row(0).status, 404);
        EXPECT_EQ(crawl::Report.Row(0).bytes, 1U);
        system.files.disk_full = false;
        bas_Connections::StopNOW();
    }
}

TEST_F(Outcomes, OfAddressesNotAskedOrTooLarge) {
    Start("www.site.com/../x.html");
    window.Sock(1).PeerAccepts();
    loop.Advance(5 * kTimeout);
    EXPECT_EQ(Told(0), "not asked");
    EXPECT_EQ(crawl::Report.Row(0).attempts, 0);

    Start("www.site.com/a.html");
    Accept(1);
    bas_Connections::MostResponseBytes = 10;
    window.Sock(1).PeerSends("more than ten bytes");
    loop.RunUntilIdle();
    bas_Connections::MostResponseBytes = 1'000'000;
    EXPECT_EQ(Told(0), "too large");
}

TEST_F(Outcomes, AnIdleSlotThatAsksAgainKeepsAGoodOutcome) {
    window.txt_max = "2";
    crawl::List1.AddItem("www.site.com/b.html");
    crawl::Report.Add("www.site.com/b.html");
    loop.Advance(20);
    window.Sock(2).PeerAccepts();
    Answer(1, "HTTP/1.0 404 Not Found\r\n\r\nx");
    loop.Advance(kTimeout);
    Respond(1, "another");
    EXPECT_EQ(Saved("a.html"), "another\r\n");
    EXPECT_EQ(Told(0), "error: Not Found");
    EXPECT_EQ(crawl::Report.Row(0).attempts, 1);
    loop.Advance(kTimeout);
    EXPECT_EQ(Told(0), "error: Not Found");
    EXPECT_EQ(Told(1), "under way: silent");
    EXPECT_EQ(crawl::Report.Count(), 2U);
}

TEST_F(Outcomes, AnAnswerToALaterTryIsReadWithoutTheEarlierOne) {
    Accept(1);
    window.Sock(1).PeerSends("HTTP/1.0 404 Not Found\r\nContent-Length: 900\r\n\r\npart");
    loop.Advance(kTimeout);
    Answer(1, "HTTP/1.0 200 OK\r\nContent-Length: 4\r\n\r\nbody");
    EXPECT_EQ(Told(0), "saved");
    EXPECT_EQ(crawl::Report.Row(0).bytes, 4U);
    EXPECT_EQ(crawl::Report.Row(0).announced, 4U);
}

TEST_F(Outcomes, AFileIsSavedEvenIfAStopComesDuringTheSave) {
    loop.AtYield(3, [] { bas_Connections::StopNOW(); });
    Respond(1, "x");
    EXPECT_FALSE(window.stop_enabled) << "it was stopped while the page was read";
    EXPECT_EQ(Told(0), "saved");
}

TEST_F(Outcomes, FilesOfAnEarlierCrawlAreCountedOnceEach) {
    for (const char* folder : {"C:\\Websites\\", "c:\\Websites\\", "c:\\Websites\\.\\"}) {
        SCOPED_TRACE(folder);
        BlankDisk();
        Start("www.site.com/a.html");
        crawl::TargetFolder = folder;
        for (const char* name : {"old.html", "dir\\old.gif", "page.html", "stale.html.tmp"})
            system.files.Have("c:\\Websites\\site.com\\" + std::string(name), "old");
        Respond(1,
                "<a href='old.html'><a href='http://www.site.com/old.html'><a href='old.html'>"
                "<a href='dir/old.gif'><a href='page'><a href='stale.html'><a href='new.php?a=1'>");
        EXPECT_EQ(crawl::Report.AlreadyThere(), 4U);
        loop.Advance(20);
        Respond(
            1,
            "<a href='new.php?a=1'><a href='old.html'><a href='./new.php?a=1'><a href='a.html'>");
        EXPECT_EQ(Told(1), "saved");
        EXPECT_EQ(crawl::Report.Count(), 2U);
        EXPECT_EQ(crawl::Report.AlreadyThere(), 4U) << "what this crawl saved does not count";
        bas_Connections::StopNOW();
    }
}

}  // namespace
