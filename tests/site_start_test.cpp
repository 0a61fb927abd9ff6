#include "engine/site_start.h"

#include <gtest/gtest.h>

#include "engine/endings.h"
#include "engine/start_page.h"
#include "setup/settings.h"
#include "tests/fakes/crawl_fixture.h"

namespace {

using fakes::CrawlTest;

class SiteStart : public CrawlTest {};

TEST_F(SiteStart, CleansTheTypedAddress) {
    const struct {
        std::string typed, address, host;
    } cases[] = {{"  HTTP://Example.com/a  ", "www.Example.com/a", "Example.com"},
                 {"http://www.example.com", "www.example.com", "example.com"},
                 {"example.com/www.x", "example.com/www.x", "example.com"},
                 {"WWW.example.com", "WWW.example.com", "WWW.example.com"},
                 {"example.com:8080/x", "www.example.com:8080/x", "example.com:8080"},
                 {"https://example.com/", "www.https://example.com/", "https:"},
                 {"", "www.", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        Start(c.typed);
        EXPECT_EQ(window.text1, c.address);
        EXPECT_EQ(crawl::SiteHost, c.host);
        EXPECT_EQ(window.label6, "Downloading Site [" + c.address + "]");
    }
}

TEST_F(SiteStart, StartsWithNothingOfThePreviousCrawl) {
    Start("www.site.com/a.html");
    Queue({"www.site.com/left", "www.site.com/taken"});
    crawl::TotalBytes = 7;
    crawl::FilesDone = 3;
    crawl::MadeFolders = "c:\\old\\*";
    crawl::LastSearchPage = ":old:";
    window.Sock(9).Connect("stale.com", 80);

    Start("www.other.com");
    EXPECT_TRUE(crawl::List1.Empty());
    EXPECT_EQ(crawl::TotalBytes + crawl::FilesDone, 0);
    EXPECT_EQ(crawl::MadeFolders + crawl::LastSearchPage, "");
    EXPECT_EQ(window.Sock(9).State(), platform::SocketState::Closed);
    EXPECT_EQ(window.Sock(1).Host(), "www.other.com");
}

TEST_F(SiteStart, TheStartPageIsTheFileOfTheLastStartAddress) {
    using bas_Connections::StartPage;
    system.files.Have("c:\\Copies\\index.html", "not of any site");
    system.files.Have("c:\\Copies\\old.com\\a.php.html", "");
    const std::pair<const char*, const char*> stored[] = {
        {"http://www.old.com/a.php", "c:\\Copies\\old.com\\a.php.html"},
        {"old.com/none", ""},
        {"http://", ""},
        {"", ""}};
    bas_General::PutSetting("InDir", "c:/Copies");
    for (const auto& [address, file] : stored) {
        bas_General::PutSetting("LastURL", address);
        EXPECT_EQ(StartPage(), file) << address;
    }
    Start("site.com/dir/");
    EXPECT_EQ(StartPage(), "") << "it is not saved yet";
    Respond(1, "page");
    bas_Connections::StopNOW();
    crawl::TargetFolder = "C:\\Elsewhere\\";  // chosen for the next crawl
    EXPECT_EQ(StartPage(), "C:\\Websites\\site.com\\dir\\index.html");
    system.files.files.clear();
    system.files.Have("C:\\Websites\\site.com\\dir\\index.html");
    EXPECT_EQ(StartPage(), "") << "a folder is not a page";
}

TEST_F(SiteStart, OnlyEnterStarts) {
    window.text1 = "site.com";
    for (const int key : {0, 10, 27, 32, 65, 112})
        bas_Connections::Text1_KeyDown(key);
    EXPECT_TRUE(window.start_enabled);
    bas_Connections::Text1_KeyDown(13);
    EXPECT_FALSE(window.start_enabled);
}

}  // namespace
