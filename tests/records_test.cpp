#include "output/records.h"

#include <gtest/gtest.h>

#include "output/mirror_files.h"
#include "tests/fakes/fake_system.h"

using namespace bas_Output;

namespace {

class Records : public testing::Test {
  protected:
    Records() {
        system.files.Have("c:\\w");
        crawl::TargetFolder = "C:\\w\\";
        crawl::Slots[3].Host = "www.site.com";
    }
    void Record(const std::string& page, int slot = 3) {
        RecordSearchText("text", slot, "C:\\w\\" + page);
    }
    fakes::FakeSystem system;
};

TEST_F(Records, PutsThePageTextOnOneLine) {
    system.files.Have("c:\\w\\a.html", "the page");
    system.page_text.text = "a\r\nb\nc\rd\n\ne  f   g    h     i";
    EXPECT_EQ(GetPageText("C:\\w\\a.html"), "a b c d e f g h  i");
    EXPECT_EQ(system.loop.Yields(), 4);
    EXPECT_EQ(GetPageText("C:\\w\\missing.html"), "");
    EXPECT_EQ(system.page_text.pages, std::vector<std::string>{"the page"});
    system.files.Have("c:\\w\\a.TXT", "no page");
    GetPageText("C:\\w\\a.TXT");
    using Kind = platform::PageKind;
    EXPECT_EQ(system.page_text.kinds, (std::vector{Kind::Markup, Kind::PlainText}));
}

TEST_F(Records, SuppressesOnlyTheImmediateRepeat) {
    for (const char* page : {"A.html", "a.html", "b.html ", "a.html", "a.htm"}) {
        Record(page);
    }
    EXPECT_EQ(system.files.At("c:\\w\\_SearchData\\site.com.txt"),
              "! a.html\r\ntext\r\n! b.html\r\ntext\r\n! a.html\r\ntext\r\n! a.htm\r\ntext\r\n");
    EXPECT_EQ(crawl::LastSearchPage, ":a.htm:");
}

TEST_F(Records, WritesNothingForAnInvalidSlot) {
    Record("a.html", 0);
    EXPECT_TRUE(system.files.files.empty());
    EXPECT_EQ(crawl::LastSearchPage, ":a.html:");
}

TEST_F(Records, SweepsCreatedFoldersUpToAnEmptyFieldExceptShortNames) {
    const std::pair<std::string, bool> cases[] = {
        {" c:/wa\\* ", true}, {"c:\\w*c:\\wa*", true}, {"c:\\b\\**c:\\wa*", false}};
    for (const auto& [made, swept] : cases) {
        system.files.Have("c:\\wa\\1.tmp", "x");
        system.files.Have("c:\\w\\2.tmp", "x");
        crawl::MadeFolders = made;
        RememberMadeFolder("c:\\wa");
        RememberMadeFolder("c:\\w");
        RemoveTempFiles();
        EXPECT_EQ(system.files.At("c:\\wa\\1.tmp") == "(none)", swept) << made;
        EXPECT_EQ(system.files.At("c:\\w\\2.tmp"), "x") << made << ": shorter than five";
    }
}

}  // namespace
