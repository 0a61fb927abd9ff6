#include <gtest/gtest.h>

#include <filesystem>

#include "platform/path_text.h"
#include "platform/system_files.h"
#include "tests/fakes/temp_folder.h"

using platform::ResolvePathText;

namespace {

TEST(PathText, AllSpellingsOfAPathResolveToOneText) {
    const std::string here = platform::PathTextOf(std::filesystem::current_path().string());
    const struct {
        std::string path, resolved;
    } cases[] = {{"C:\\a\\\\b/.\\c\\", "c:\\a\\b\\c"},
                 {"q:a\\..\\..\\b", "q:\\b"},
                 {"\\a", *ResolvePathText(here.substr(0, 2) + "\\a")},
                 {"..\\a", *ResolvePathText(here + "\\..\\a")}};
    for (const auto& c : cases) {
        EXPECT_EQ(ResolvePathText(c.path), c.resolved) << c.path;
    }
    EXPECT_EQ(platform::SystemPathOf("c:"), "c:\\");
    EXPECT_EQ(ResolvePathText("\\\\server\\share\\a"), std::nullopt);
}

class SystemFilesTest : public testing::Test {
  protected:
    std::string In(const std::string& name) const { return folder.Text() + "\\" + name; }
    fakes::TempFolder folder;
    platform::SystemFiles files{folder.SystemPath().string()};
};

TEST_F(SystemFilesTest, RefusesNamesThatTheSystemWouldMisread) {
    ASSERT_TRUE(files.WriteFile(In("a"), {"a"}));
    for (const char* name :
         {"a:b",    "a::$DATA", "con", "NUL.txt", "aux .a.b", "Com9",   "lpt1.",          "prn",
          "con\\a", "CONIN$",   "a?",  "*",       "a<b",      "a>b",    "a\"b",           "a|b",
          "a\tb",   "a.",       "a ",  "a. .",    "...",      ".. \\b", "a.\\..\\.. \\b", " "}) {
        EXPECT_FALSE(files.CreateFolder(In(name))) << name;
        EXPECT_FALSE(files.AppendFile(In(name), {"x"})) << name;
        EXPECT_EQ(files.FileLength(In(name)), std::nullopt) << name;
    }
    for (const char* name : {"com0", "com", "com10", "cone", ".con", "null.txt"}) {
        EXPECT_TRUE(files.WriteFile(In(name), {"x"})) << name;
    }
}

TEST_F(SystemFilesTest, NamesAreInTheSystemsCodePage) {
    ASSERT_TRUE(files.CreateFolder(In("caf\xe9")));
    std::filesystem::create_directory(folder.SystemPath() / L"\u4e2d");
    EXPECT_TRUE(std::filesystem::exists(folder.SystemPath() / L"caf\u00e9"));
    EXPECT_EQ(files.Subfolders(folder.Text()), std::vector<std::string>{"caf\xe9"})
        << "except names that path text cannot contain";
    files.WriteFile(In("A.TMP"), {"x"});
    files.DeleteBySuffix(folder.Text(), ".tmp");
    EXPECT_EQ(files.FileLength(In("a.tmp")), std::nullopt);
}

}  // namespace
