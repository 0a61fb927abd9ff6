#include "output/paths.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_system.h"

using namespace bas_Output;

namespace {

TEST(CleanNames, ReplacesWhatCannotStandInAName) {
    const struct {
        std::string name, clean;
    } cases[] = {
        {"a**b<c>{d}|e", "ab_c_de"},  {"b!c&d???e", "b_c_d_e"}, {"_________", "__"}, {"_*_", "_"},
        {":\\a\"b'#%", ":\\a\"b'#%"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CleanLinkName(c.name), c.clean) << c.name;
        EXPECT_EQ(CleanFileName(c.name), c.clean + ".html") << c.name;
        EXPECT_EQ(CleanFileName(c.name + "."), c.clean + ".") << c.name;
    }
}

TEST(TopLevel, LooksAfterTheFirstHostFolder) {
    fakes::FakeSystem system;
    crawl::SiteHost = "Site.com";
    // Without the host, it is looked at from the key's length on; one character is skipped.
    for (const char* top : {"C:\\Web\\SITE.com\\a", "C:/Web/site.com/a", "C:\\Web\\site.com\\\\a",
                            "C:\\Web\\site.com\\", "C:\\other.net", ""}) {
        EXPECT_TRUE(IsTopLevelFile(top)) << top;
    }
    for (const char* below : {"C:\\Web\\site.com\\d\\a", "C:\\Web\\site.com\\d\\site.com\\a",
                              "C:\\Websites\\other.net\\a"}) {
        EXPECT_FALSE(IsTopLevelFile(below)) << below;
    }
}

class MakeLocalPathTest : public testing::Test {
  protected:
    std::string LocalPathOf(std::string path) {
        crawl::TargetFolder = "C:\\Web\\";
        EXPECT_EQ(MakeLocalPath(path), "");
        EXPECT_EQ(crawl::SavePath, path);
        return path;
    }
    fakes::FakeSystem system;
};

TEST_F(MakeLocalPathTest, TurnsAddressesIntoPaths) {
    EXPECT_EQ(LocalPathOf(" C:\\Web\\www.site.com/d/a.html "), "C:\\Web\\site.com\\d\\a.html");
    EXPECT_EQ(LocalPathOf("C:\\Web\\\\\\a.html"), "C:\\Web\\\\a.html");
    EXPECT_EQ(LocalPathOf("C:\\Web\\wwwwww..x/www.y"), "C:\\Web\\www.x\\y");
    EXPECT_EQ(LocalPathOf("http:// site.com/a"), "site.com\\a");
    EXPECT_EQ(LocalPathOf("HTTP://site.com"), "HTTP:\\site.com");
}

TEST_F(MakeLocalPathTest, NotesTheFoldersThatItMadeAndNoOthers) {
    LocalPathOf("C:\\Web\\Site.com\\a.html");
    EXPECT_EQ(crawl::MadeFolders, "c:\\web\\*c:\\web\\site.com\\*");
    EXPECT_TRUE(system.files.FolderExists("c:\\Web\\Site.com"));
    crawl::MadeFolders.clear();
    LocalPathOf("C:\\Web\\Site.com\\img\\1.gif");
    MakeFolder("c:\\nowhere\\inner");
    EXPECT_EQ(crawl::MadeFolders, "c:\\web\\site.com\\img\\*");

    // A folder counts on the way also when ".." leads out of it again.
    crawl::MadeFolders.clear();
    LocalPathOf("C:\\Web\\Site.com\\a\\b\\..\\..\\c\\d.html");
    EXPECT_EQ(crawl::MadeFolders,
              "c:\\web\\site.com\\a\\*c:\\web\\site.com\\a\\b\\*"
              "c:\\web\\site.com\\a\\b\\..\\..\\c\\*");
}

TEST_F(MakeLocalPathTest, LosesBlanksBeforeAFolderButNotInThePath) {
    EXPECT_EQ(LocalPathOf("C:\\Web\\ site.com\\a.html"), "C:\\Web\\ site.com\\a.html");
    EXPECT_TRUE(system.files.FolderExists("C:\\Web\\site.com"));
    EXPECT_FALSE(system.files.FolderExists("C:\\Web\\ site.com"));
}

}  // namespace
