#include "engine/http_exchange.h"

#include <gtest/gtest.h>

#include <map>
#include <new>

#include "engine/response_memory.h"
#include "tests/fakes/crawl_fixture.h"

namespace {

using fakes::CrawlTest;
using platform::SocketState;

const std::string kHeader = "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n";

class HttpExchange : public CrawlTest {
  protected:
    void SetUp() override {
        Start("www.site.com");
        window.Sock(1).Close();
    }
    /// Starts a job on slot 1, which connects and sends its request.
    void Request(const std::string& address) {
        bas_Connections::ConnectNext(address);
        Accept(1);
    }
    void Receive(int slot, const std::string& bytes) {
        window.Sock(slot).PeerSends(bytes);
        loop.RunUntilIdle();
    }
};

TEST_F(HttpExchange, SendsOneRequestByteForByte) {
    const struct {
        std::string address, line, host;
    } cases[] = {{"www.example.com/docs/index.html", "GET /docs/ HTTP/1.0", "www.example.com"},
                 {"www.example.com//a.html", "GET /a.html HTTP/1.0", "www.example.com"},
                 {"www.example.com///a.html", "GET //a.html HTTP/1.0", "www.example.com"},
                 {"www.example.com/docs", "GET /docs/ HTTP/1.0", "www.example.com"},
                 {"example.com:8080/a.html", "GET /a.html HTTP/1.0", "example.com:8080"}};
    for (const auto& c : cases) {
        Request(c.address);
        EXPECT_EQ(window.Sock(1).Sent(), c.line + "\r\nHost: " + c.host +
                                             "\r\nReferrer: " + c.host +
                                             "\r\nUser-Agent: Internet Explorer 6.01\r\n\r\n");
        window.Sock(1).Close();
    }
}

TEST_F(HttpExchange, NeverAsksAboveTheRoot) {
    for (const char* address : {"a.com/../x.html", "a.com//../x.html", "a.com/..", "a.com/..hidden",
                                "a.com/index.html/../x"}) {
        SCOPED_TRACE(address);
        Request(address);
        EXPECT_EQ(window.Sock(1).Sent(), "");
        EXPECT_EQ(window.Sock(1).State(), SocketState::Closed);
        EXPECT_EQ(crawl::Slots[1].Response.View(), "CANCEL");
        EXPECT_TRUE(window.tmrOut(1).Enabled()) << "such a job ends by its timeout";
    }
}

TEST_F(HttpExchange, ReadsTheAnnouncedLengthForDisplayOnly) {
    const std::pair<std::string, int> cases[] = {
        {"Content-Length: 2048\r\n", 2048},
        {"Content-Length:2048\r\n", 48},  // one character after the colon is always skipped
        {"Content-Length:    123456789012\r\n", 0},  // no line end within the window
        {"Content-Length: 12 pages\r\n", 0},
        {"Content-Length:   12345678\r\n", 12345678},
        {"Content-Length:   123456789\r\n", 0},
        {"Content-Length: 1\r2\r\n", 12},
        {"Content-Length: 9999999999\r\n", 5},  // does not fit: the old value stays
        {"Content-Length:", 0},
        {"not a header: 1 77\r\n", 5}};
    for (const auto& [chunk, length] : cases) {
        Request("a.com/x.html");
        crawl::Slots[1].ContentLength = 5;
        Receive(1, chunk);
        EXPECT_EQ(crawl::Slots[1].ContentLength, length) << chunk;
        window.Sock(1).Close();
    }
}

TEST_F(HttpExchange, ShowsWhatArrives) {
    Request("a.com/x.html");
    Receive(1, "Content-Length: 2000\r\n" + std::string(1978, 'x'));
    EXPECT_EQ(window.rows[1].status, "Downloading a.com/x.html");
    EXPECT_EQ(window.rows[1].size, "1.95 KB");
    EXPECT_EQ(window.rows[1].received, "1.95 KB");
    EXPECT_EQ(crawl::TotalBytes, 2000);
    EXPECT_EQ(crawl::Slots[1].BytesReceived, 2000);

    crawl::TotalBytes = crawl::Slots[1].BytesReceived = 2147483640;
    Receive(1, "more than fits");
    loop.Advance(20);
    EXPECT_EQ(window.label4, "2,147,483,640 Bytes") << "a sum that would overflow is ignored";
    EXPECT_EQ(bas_Connections::FormatCount(123456), "123,456");
    EXPECT_EQ(window.rows[1].received, "1.99 GB");

    window.txt_max = "0";
    Receive(1, "late");
    EXPECT_EQ(window.rows[1].status, "Not Connected.") << "a slot beyond the count shows nothing";
}

TEST_F(HttpExchange, DataWithoutAJobClosesTheConnection) {
    Request("a.com/x.html");
    crawl::Slots[1].Url = "  ";
    Receive(1, "late");
    EXPECT_EQ(window.Sock(1).State(), SocketState::Closed);
    EXPECT_EQ(window.rows[1].status, "Not Connected.");

    bas_Connections::ConnectNext("a.com/y.html");
    crawl::Slots[1].Url.clear();
    Accept(1);
    EXPECT_EQ(window.Sock(1).State(), SocketState::Closed);
    EXPECT_EQ(window.rows[1].status, "Not Connected.");
}

TEST_F(HttpExchange, ResetsAFinishedRowUnlessItsAddressIsOnlyAHost) {
    Start("www.site.com");
    Respond(1, "");
    EXPECT_EQ(window.rows[1].received, "19 bytes");
    Start("www.site.com/a.html");
    Respond(1, "");
    EXPECT_EQ(window.rows[1].received, "-");
}

TEST_F(HttpExchange, YieldsThreeTimesBetweenSavingAndScanning) {
    std::map<std::string, int> yields;
    system.files.on_write = [&](const std::string& path) { yields.emplace(path, loop.Yields()); };
    Request("www.site.com/a.gif");
    Respond(1, " src=b.gif");
    const std::string site = "c:\\Websites\\site.com\\";
    constexpr int kOfTheScannerBeforeALink = 3;
    EXPECT_EQ(yields.at(site + "b.gif.tmp") - yields.at(site + "a.gif"),
              3 + kOfTheScannerBeforeALink);
}

TEST_F(HttpExchange, AHandlerLeavesASlotWithAnotherJobAlone) {
    const std::string arrived = kHeader + "<a href=y.html>";
    for (int nth = 1; nth <= 10; ++nth) {
        SCOPED_TRACE(nth);
        bool restarted = false;
        loop.AtYield(nth, [&] {
            bas_Connections::StopNOW();
            Start("www.other.com/");
            window.Sock(1).PeerAccepts();
            Receive(1, arrived);  // in the same yield, as from a fast server
            restarted = true;
        });
        Start("www.site.com/dir/page.html");
        Respond(1, "Content-Length: 99\r\n<a href=x.html><a href=another.html>");
        ASSERT_TRUE(restarted);
        EXPECT_EQ(window.Sock(1).State(), SocketState::Connected);
        EXPECT_EQ(window.rows[1].status, "Downloading www.other.com/");
        EXPECT_EQ(crawl::Slots[1].Response.View(), arrived);
        EXPECT_EQ(crawl::Slots[1].ContentLength, 0);
        EXPECT_EQ(crawl::Slots[1].BytesReceived, static_cast<std::int32_t>(arrived.size()));
        bas_Connections::StopNOW();
        BlankDisk();
    }
}

TEST_F(HttpExchange, ResolvesLinksAgainstThePagesFolder) {
    for (const std::string folder : {"www.site.com/x/", "www.site.com/x.php?q=/"}) {
        bas_Connections::ConnectNext(folder + "y.html");
        Respond(1, "<a href=\"b.html\">");
        EXPECT_EQ(fakes::Items(crawl::List1), std::vector{folder + "b.html"});
        crawl::List1.Clear();
    }
}

/// All responses together may hold 1000 bytes.
class ResponseMemory : public HttpExchange {
  protected:
    ResponseMemory() { bas_Connections::MostResponseBytes = 1000; }
    ~ResponseMemory() override { bas_Connections::MostResponseBytes = before_; }

    /// Starts two jobs on slots 1 and 2, which receive this many bytes.
    void Receiving(std::size_t first, std::size_t second) {
        for (const int slot : {1, 2}) {
            bas_Connections::ConnectNext("www.site.com/" + std::to_string(slot) + ".gif");
            Accept(slot);
        }
        Receive(1, kHeader + std::string(first - kHeader.size(), '1'));
        Receive(2, kHeader + std::string(second - kHeader.size(), '2'));
    }
    void ExpectGivenUp(int slot) {
        EXPECT_EQ(crawl::Slots[slot].Response.View(), "CANCEL");
        EXPECT_EQ(window.Sock(slot).State(), SocketState::Closed);
        EXPECT_EQ(window.rows[slot].status, "Given up: too large for memory");
        EXPECT_EQ(Saved(std::to_string(slot) + ".gif"), "(none)");
    }
    void ExpectWhole(int slot) {
        window.Sock(slot).PeerCloses();
        loop.RunUntilIdle();
        EXPECT_NE(Saved(std::to_string(slot) + ".gif"), "(none)");
        EXPECT_EQ(window.Sock(slot).State(), SocketState::Closed);
    }

  private:
    std::size_t before_ = bas_Connections::MostResponseBytes;
};

TEST_F(ResponseMemory, GivesUpTheLargestResponseForTheOthers) {
    for (const int largest : {1, 2}) {
        Receiving(largest == 1 ? 600 : 400, largest == 2 ? 600 : 400);
        Receive(2, "one too many");
        ExpectGivenUp(largest);
        ExpectWhole(3 - largest);
        SetUp();  // that crawl is over
        BlankDisk();
    }
}

TEST_F(ResponseMemory, ReleasesTheResponsesOfIdleSlotsFirst) {
    Receiving(600, 200);
    ExpectWhole(1);
    EXPECT_FALSE(crawl::Slots[1].Response.Empty());
    Receive(2, std::string(700, '2'));
    ExpectWhole(2);
}

TEST_F(ResponseMemory, NeverGivesUpACompleteResponse) {
    Receiving(600, 300);
    // Slot 1 is being saved and scanned when the rest of slot 2 arrives.
    loop.AtYield(2, [&] {
        bas_Connections::ProcessResponse(std::string(200, '2'), 2);
        ExpectGivenUp(2);
    });
    ExpectWhole(1);
}

TEST_F(ResponseMemory, AFailedAllocationCostsOnlyItsOwnJob) {
    Receiving(300, 300);
    system.files.on_write = [](const std::string& path) {
        if (path.ends_with("\\1.gif")) throw std::bad_alloc();
    };
    window.Sock(1).PeerCloses();
    loop.RunUntilIdle();
    ExpectGivenUp(1);
    ExpectWhole(2);
}

}  // namespace
