#include "output/records.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_host.h"
#include "tests/fakes/fake_loop.h"

using namespace bas_Output;

namespace {

class Records : public testing::Test {
  protected:
    Records() {
        host.files.Have("c:\\w");
        crawl::TargetFolder = "C:\\w\\";
        crawl::Slots[3].Host = "www.site.com";
    }
    void Record(const std::string& page, std::int16_t slot = 3) {
        RecordSearchText("text", slot, "C:\\w\\" + page);
    }
    std::string SearchData() const { return host.files.At("c:\\w\\_SearchData\\site.com.txt"); }

    fakes::FakeLoop loop;
    fakes::FakeHost host{loop};
};

TEST_F(Records, AppendsLinesInFoldersOfTheirOwn) {
    for (const char* text : {"a", "", "b\r\n"}) {
        std::string path = "C:\\w\\www.site.com/dir/log.txt";
        EXPECT_TRUE(AppendToFile(text, path));
        EXPECT_EQ(path, "C:\\w\\site.com\\dir\\log.txt");
        EXPECT_EQ(crawl::SavePath, path);
    }
    EXPECT_EQ(host.files.At("c:\\w\\site.com\\dir\\log.txt"), "a\r\n\r\nb\r\n\r\n");
    host.files.disk_full = true;
    std::string path = "C:\\w\\log.txt";
    EXPECT_FALSE(AppendToFile("a", path));
}

TEST_F(Records, FoldsThePageTextOntoOneLine) {
    host.files.Have("c:\\w\\a.html", "the page");
    const struct {
        std::string text, folded;
    } cases[] = {
        {"a\r\nb\nc\rd", "a b c d"},
        {"a\n\nb  c   d    e     f", "a b c d e  f"},
        {"", ""},
    };
    for (const auto& c : cases) {
        const int yields = loop.Yields();
        host.page_text.text = c.text;
        EXPECT_EQ(GetPageText("C:\\w\\a.html"), c.folded);
        EXPECT_EQ(loop.Yields() - yields, 4);
        EXPECT_EQ(host.page_text.pages.back(), "the page");
    }
    EXPECT_EQ(GetPageText("C:\\w\\missing.html"), "");
    EXPECT_EQ(host.page_text.pages.size(), std::size(cases));
}

TEST_F(Records, SuppressesOnlyTheImmediateRepeat) {
    for (const char* page : {"site.com\\A.html", "site.com\\a.html", "site.com\\b.html ",
                             "site.com\\a.html", "site.com\\a.htm"}) {
        Record(page);
    }
    EXPECT_EQ(SearchData(),
              "! site.com\\a.html\r\ntext\r\n! site.com\\b.html\r\ntext\r\n"
              "! site.com\\a.html\r\ntext\r\n! site.com\\a.htm\r\ntext\r\n");
    EXPECT_EQ(crawl::LastSearchPage, ":site.com\\a.htm:");
}

TEST_F(Records, ASlotThatIsNoneWritesNothing) {
    Record("site.com\\a.html", 0);
    Record("site.com\\b.html", 25);
    EXPECT_TRUE(host.files.files.empty());
    EXPECT_EQ(crawl::LastSearchPage, ":site.com\\b.html:");
}

TEST_F(Records, SweepsPlaceholdersOfFoldersMade) {
    host.files.Have("c:\\w\\old\\kept.tmp", "x");
    for (const char* name : {"Site.com\\dir\\1.tmp", "Site.com\\2.tmp", "Site.com\\3.html", "4.tmp",
                             "old\\5.tmp", "old\\new\\6.tmp"}) {
        std::string path = std::string("C:\\w\\") + name;
        ASSERT_TRUE(AppendToFile("x", path));
    }
    RemoveTempFiles();
    std::vector<std::string> left;
    for (const auto& file : host.files.files) {
        left.push_back(file.first);
    }
    EXPECT_EQ(left, (std::vector<std::string>{"c:\\w\\4.tmp", "c:\\w\\Site.com\\3.html",
                                              "c:\\w\\old\\5.tmp", "c:\\w\\old\\kept.tmp"}));
}

TEST_F(Records, TheSweepStopsAtAnEmptyFieldAndSkipsShortOnes) {
    const struct {
        std::string made;
        bool swept;
    } cases[] = {
        {"", false},           {"c:\\w\\a*", true},
        {"c:/w/a\\*", true},   {"c:\\*c:\\w\\a*", true},
        {" c:\\w\\a* ", true}, {"c:\\w\\a", true},
        {"*c:\\w\\a*", false}, {"c:\\b\\**c:\\w\\a*", false},
    };
    for (const auto& c : cases) {
        host.files.Have("c:\\w\\a\\1.tmp", "x");
        host.files.Have("c:\\2.tmp", "x");
        crawl::MadeFolders = c.made;
        RemoveTempFiles();
        EXPECT_EQ(host.files.At("c:\\w\\a\\1.tmp") == "(none)", c.swept) << c.made;
        EXPECT_EQ(host.files.At("c:\\2.tmp"), "x") << c.made;
    }
}

TEST_F(Records, TheSweepReachesTheLastOfManyFolders) {
    constexpr int kFolders = 40'000;  // more than a field counter could number
    for (int n = 0; n < kFolders; ++n) {
        crawl::MadeFolders += "c:\\w\\" + std::to_string(n) + "\\*";
    }
    host.files.Have("c:\\w\\39999\\a.tmp", "x");
    RemoveTempFiles();
    EXPECT_EQ(host.files.At("c:\\w\\39999\\a.tmp"), "(none)");
}

}  // namespace
