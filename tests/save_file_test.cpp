#include "output/save_file.h"

#include <gtest/gtest.h>

#include <map>

#include "output/mirror_files.h"
#include "output/records.h"
#include "tests/fakes/fake_system.h"

using namespace bas_Output;

namespace {

class SaveFileTest : public testing::Test {
  protected:
    SaveFileTest() {
        system.files.Have("c:\\w");
        crawl::TargetFolder = "C:\\w\\";
        crawl::SiteHost = "site.com";
        crawl::Slots[1].Host = "www.site.com";
    }
    void Save(const std::string& body, std::string address, int slot = 1) {
        SaveFile("HTTP/1.0 200 OK\r\nServer: x\r\n\r\n" + body, address, slot);
    }
    /// The contents saved for `body`, without the line end that every file gets.
    std::string Rewritten(const std::string& body, const std::string& address = "site.com/d/e.bin",
                          int slot = 1) {
        Save(body, "\\" + address, slot);
        std::string saved = system.files.At(crawl::SavePath);
        EXPECT_TRUE(saved.ends_with("\r\n"));
        return saved.substr(0, saved.size() - 2);
    }

    fakes::FakeSystem system;
};

TEST_F(SaveFileTest, ChoosesTheNameThatLinksUse) {
    const struct {
        std::string address, path, placeholder;
    } cases[] = {{"www.site.com/dir/page.html", "site.com\\dir\\page.html", ""},
                 {"www.site.com/", "site.com\\index.html", ""},
                 {"site.com/a/.html", "site.com\\a\\index.html", ""},
                 {"site.com/page.php?x=1", "site.com\\page.php_x=1.html", "site.com\\page.php_x=1"},
                 {"site.com/x.html/a.php", "site.com\\x.html\\a.php", ""},
                 {"localhost/page", "localhost\\page.html", ""}};
    for (const auto& c : cases) {
        const std::string placeholder =
            "C:\\w\\" + (c.placeholder.empty() ? c.path : c.placeholder) + ".tmp";
        system.files.Have(placeholder, kPlaceholderText);
        Save("body", "\\" + c.address);
        EXPECT_EQ(crawl::SavePath, "C:\\w\\" + c.path);
        EXPECT_EQ(system.files.At("C:\\w\\" + c.path), "body\r\n") << c.address;
        EXPECT_EQ(system.files.At(placeholder), "(none)") << c.address;
        EXPECT_EQ(crawl::SavePathBeforeRename + ".tmp", placeholder);
    }
    EXPECT_EQ(crawl::FilesDone, static_cast<std::int32_t>(std::size(cases)));
}

TEST_F(SaveFileTest, RemovesTheHeaderAndCleansTheCallersAddress) {
    const std::string binary("\0\xff\0", 3);
    const std::map<std::string, std::string> cases = {{"200 OK\r\n\r\na\r\n\r\nb", "a\r\n\r\nb"},
                                                      {"no blank line", "blank line"},
                                                      {"ab", ""},
                                                      {"\r\n\r\n" + binary, binary}};
    for (const auto& [received, saved] : cases) {
        std::string address = "\\site.com//a?b\\\\c.gif";
        SaveFile(received, address, 1);
        EXPECT_EQ(address, "\\site.com//a_b\\c.gif");
        EXPECT_EQ(system.files.At("c:\\w\\site.com\\a_b\\c.gif"), saved + "\r\n") << received;
    }
}

TEST_F(SaveFileTest, ACancelledDownloadLeavesNoTrace) {
    std::string address = "\\site.com/a*.html";
    SaveFile(" CanceL  ", address, 1);
    EXPECT_EQ(address, "\\site.com/a*.html");
    EXPECT_EQ(crawl::FilesDone, 0);
    EXPECT_TRUE(system.files.files.empty());
}

TEST_F(SaveFileTest, DoublesLineEndsInPagesOnly) {
    const std::string body = "a\nb\rc\r\nd";
    const std::string doubled = "a\r\n\nb\r\nc\r\n\r\n\nd";
    for (const std::string page : {"a.htm", "a.shtml", "a.html/b.gif"}) {
        EXPECT_EQ(Rewritten(body, "site.com/d/" + page), doubled) << page;
    }
    for (const std::string other : {"a.gif", "a.HTM"}) {
        EXPECT_EQ(Rewritten(body, "site.com/d/" + other), body) << other;
    }
}

TEST_F(SaveFileTest, ShortensLinksToTheSlotsHost) {
    crawl::Slots[1].Host = " HTTP://www.site.com/ ";  // in capitals it matches nothing
    crawl::Slots[24].Host = "www.a.net\\";
    const std::string page = "http://a.net/x http://www.a.net/y http://site.com/z";
    const std::string path = "site.com/d/e.bin";
    EXPECT_EQ(Rewritten(page, path, 1), page);
    EXPECT_EQ(Rewritten(page, path, 24), "x y http://site.com/z");
    EXPECT_EQ(Rewritten(page, path, 25), "a.net/x www.a.net/y site.com/z");
}

TEST_F(SaveFileTest, RecordsTheTextOfPagesOnly) {
    for (const char* name : {"a.gif", "a.HTM", "x.tx/b.css"}) {
        Save("body", std::string("\\site.com/") + name);
    }
    EXPECT_EQ(system.files.At("c:\\w\\_SearchData\\site.com.txt"),
              "! site.com\\a.htm\r\npage text\r\n! site.com\\x.tx\\b.css\r\npage text\r\n");
    EXPECT_EQ(system.page_text.pages.at(0), "body\r\n");
}

TEST_F(SaveFileTest, ASaveDuringAnotherSaveMixesNothingUp) {
    crawl::Slots[2].Host = "other.net";
    // At each yield in turn: four while the page is read, one before the placeholder is deleted.
    for (int yield = 1; yield <= 5; ++yield) {
        SCOPED_TRACE(yield);
        const std::string number = std::to_string(yield);
        const std::string outer = "c:\\w\\site.com\\" + number + ".html";
        system.files.Have(outer + ".tmp", kPlaceholderText);
        system.loop.AtYield(yield, [&] {
            EXPECT_EQ(system.files.At(outer + ".tmp"), kPlaceholderText);
            Save("inner", "\\other.net/" + number + ".php", 2);
        });
        Save("outer", "\\site.com/" + number + ".html");
        EXPECT_EQ(system.files.At(outer), "outer\r\n");
        EXPECT_EQ(system.files.At("c:\\w\\other.net\\" + number + ".php.html"), "inner\r\n");
        EXPECT_EQ(system.files.At(outer + ".tmp"), "(none)");
        EXPECT_TRUE(system.files.At("c:\\w\\_SearchData\\site.com.txt")
                        .ends_with("! site.com\\" + number + ".html\r\npage text\r\n"));
    }
}

}  // namespace
