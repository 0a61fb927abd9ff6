#include "output/paths.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>

#include "tests/fakes/fake_system.h"

using namespace bas_Output;

namespace {

TEST(CleanNames, ReplacesWhatNamesCannotContain) {
    const struct {
        std::string name, clean;
    } cases[] = {{"a**b<c>{d}|e", "ab_c_de"},
                 {"b!c&d???e", "b_c_d_e"},
                 {"_________", "__"},
                 {"_*_", "_"},
                 {":\\a\"b'#%", ":\\a\"b'#%"}};
    for (const auto& c : cases) {
        EXPECT_EQ(CleanLinkName(c.name), c.clean) << c.name;
        EXPECT_EQ(CleanFileName(c.name), c.clean + ".html") << c.name;
        EXPECT_EQ(CleanFileName(c.name + "."), c.clean + ".") << c.name;
    }
}

TEST(GetTokenTest, SplitsAtTheSeparator) {
    EXPECT_EQ(GetToken(" a b*c ", 1, "*"), "a b");
    EXPECT_EQ(GetToken("a*b*", 2, "*"), "b");
    EXPECT_EQ(GetToken("a*b", 3, "*"), "");
    EXPECT_EQ(GetToken("a*b", -1, "*"), "");
    EXPECT_EQ(GetToken(std::string(32767, '*'), 32767, "*"), "");
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

std::string WithoutBlanksAround(std::string s) {
    while (s.starts_with(' '))
        s.erase(0, 1);
    while (s.ends_with(' '))
        s.pop_back();
    return s;
}

/// A plain version: creates each folder on the path in turn and ignores failures.
std::string MakeFoldersPlainly(std::string rest, platform::Files& files) {
    std::string before, recorded;
    for (std::size_t end; (end = rest.find('\\')) != rest.npos;) {
        const std::string name = rest.substr(0, end + 1);
        const std::string folder = WithoutBlanksAround(before) + WithoutBlanksAround(name);
        if (files.CreateFolder(folder)) recorded += folder + "*";
        before += name;
        rest = WithoutBlanksAround(rest.substr(end + 1));
    }
    return recorded;
}

TEST_F(MakeLocalPathTest, EqualsCreatingEachFolderInTurn) {
    const char* const names[] = {"a", "b",  "new", "file.html", "refused", ".",
                                 "",  "..", " a",  "b ",        "...",     "..b"};
    std::minstd_rand random(13);
    for (int round = 0; round < 300; ++round) {
        system.files = {};
        system.files.Have("c:\\a\\b");
        system.files.Have("c:\\a\\file.html", "in the way");
        system.files.refused = {"c:\\refused", "c:\\a\\new\\refused"};
        fakes::MemoryFiles plain = system.files;
        for (int paths = 0; paths < 5; ++paths) {
            std::string path = "c:\\";
            for (auto depth = random() % 9; depth > 0; --depth) {
                path.append(names[random() % std::size(names)]).append("\\");
            }
            crawl::MadeFolders.clear();
            crawl::TargetFolder = "C:\\";
            MakeLocalPath(path);
            EXPECT_EQ(crawl::MadeFolders, MakeFoldersPlainly(path, plain)) << path;
            ASSERT_EQ(system.files.folders, plain.folders) << path;
        }
    }
}

TEST_F(MakeLocalPathTest, RecreatesFoldersThatVanished) {
    LocalPathOf("C:\\Web\\site.com\\a\\b.html");
    system.files.folders = {"c:"};
    LocalPathOf("C:\\Web\\site.com\\a\\b.html");
    EXPECT_TRUE(system.files.FolderExists("c:\\Web\\site.com\\a"));
}

}  // namespace
