#include "output/paths.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_host.h"

using namespace bas_Output;

namespace {

TEST(CleanNames, ReplacesWhatCannotStandInAName) {
    const struct {
        std::string name, clean;
    } cases[] = {
        {"a**b<c>", "ab_c_"},
        {"x???y", "x_y"},
        {"a{b}c|d", "abcd"},
        {"a?b!c&d", "a_b_c_d"},
        {"________", "_"},
        {"_________", "__"},
        {"_*_", "_"},
        {"c:\\a\"b'#%", "c:\\a\"b'#%"},
        {"", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CleanLinkName(c.name), c.clean) << c.name;
        EXPECT_EQ(CleanFileName(c.name), c.clean + ".html") << c.name;
        EXPECT_EQ(CleanFileName(c.name + "."), c.clean + ".") << c.name;
    }
}

TEST(TopLevel, LooksAfterTheFirstHostFolder) {
    const struct {
        std::string path;
        bool top_level;
    } cases[] = {
        {"C:\\Websites\\site.com\\index.html", true},
        {"C:/Websites/SITE.com/index.html", true},
        {"C:\\Websites\\site.com\\dir\\a.html", false},
        {"C:\\Websites\\site.com\\\\a.html", true},  // one character is skipped
        {"C:\\Websites\\site.com\\d\\site.com\\a.html", false},
        {"C:\\Websites\\site.com\\", true},
        {"C:\\Websites\\other.net\\a.html", false},  // looked at from the key's length on
        {"C:\\other.net", true},
        {"", true},
    };
    fakes::FakeHost host;
    crawl::SiteHost = "Site.com";
    for (const auto& c : cases) {
        EXPECT_EQ(IsTopLevelFile(c.path), c.top_level) << c.path;
    }
}

TEST(GetTokenTest, SplitsAtTheSeparator) {
    const struct {
        std::string text;
        std::int16_t index;
        std::string field;
    } cases[] = {
        {"a*b*", 1, "a"},  {"a*b*", 2, "b"}, {"a*b*", 3, ""},       {"a*b*", 4, ""},
        {"abc", 1, "abc"}, {"abc", 2, ""},   {"a**c", 2, ""},       {"a**c", 3, "c"},
        {"*a", 1, ""},     {"*a", 2, "a"},   {" a b*c ", 1, "a b"}, {" *c ", 1, ""},
        {"a*b", 0, ""},    {"a*b", -1, ""},  {"", 1, ""},           {"abc", 0, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(GetToken(c.text, c.index, "*"), c.field) << c.text << " " << c.index;
    }
    EXPECT_EQ(GetToken(std::string(32767, '*'), 32767, "*"), "");
}

TEST(MakeLocalPathTest, TurnsAddressesIntoPaths) {
    const struct {
        std::string path, local;
    } cases[] = {
        {" C:\\Websites\\www.site.com/dir/page.html ", "C:\\Websites\\site.com\\dir\\page.html"},
        {"C:\\Websites\\\\www.site.com/", "C:\\Websites\\site.com\\"},
        {"C:\\Websites\\\\\\a.html", "C:\\Websites\\\\a.html"},
        {"C:\\Websites\\wwwwww..x/www.y", "C:\\Websites\\www.x\\y"},
        {"http:// site.com/a", "site.com\\a"},
        {"HTTP://site.com", "HTTP:\\site.com"},
        {"D:\\www.mirror\\a", "D:\\mirror\\a"},
        {"", ""},
    };
    for (const auto& c : cases) {
        fakes::FakeHost host;
        crawl::TargetFolder = "C:\\Websites\\";
        std::string path = c.path;
        EXPECT_EQ(MakeLocalPath(path), "");
        EXPECT_EQ(path, c.local);
        EXPECT_EQ(crawl::SavePath, c.local);
    }
}

TEST(MakeLocalPathTest, NotesTheFoldersThatItMade) {
    fakes::FakeHost host;
    crawl::TargetFolder = "C:\\Websites\\";
    std::string path = "C:\\Websites\\Site.com\\dir\\page.html";
    MakeLocalPath(path);
    EXPECT_EQ(crawl::MadeFolders,
              "c:\\websites\\*c:\\websites\\site.com\\*"
              "c:\\websites\\site.com\\dir\\*");
    EXPECT_TRUE(host.files.FolderExists("c:\\Websites\\Site.com\\dir"));
    EXPECT_FALSE(host.files.FolderExists("c:\\Websites\\Site.com\\dir\\page.html"));

    crawl::MadeFolders.clear();
    path = "C:\\Websites\\Site.com\\dir\\img\\1.gif";
    MakeLocalPath(path);
    EXPECT_EQ(crawl::MadeFolders, "c:\\websites\\site.com\\dir\\img\\*");
}

TEST(MakeLocalPathTest, LosesBlanksBeforeAFolderButNotInThePath) {
    fakes::FakeHost host;
    crawl::TargetFolder = "C:\\W\\";
    std::string path = "C:\\W\\ site.com\\a.html";
    MakeLocalPath(path);
    EXPECT_EQ(path, "C:\\W\\ site.com\\a.html");
    EXPECT_TRUE(host.files.FolderExists("C:\\W\\site.com"));
    EXPECT_FALSE(host.files.FolderExists("C:\\W\\ site.com"));
}

TEST(MakeFolderTest, NotesOnlyWhatWasReallyMade) {
    fakes::FakeHost host;
    MakeFolder("c:\\program\\DlData");
    MakeFolder("c:\\program\\DlData");
    MakeFolder("c:\\nowhere\\inner");
    EXPECT_EQ(crawl::MadeFolders, "c:\\program\\dldata*");
}

}  // namespace
