#include "platform/path_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

using platform::PathTextOf;
using platform::ResolvePathText;
using platform::SystemPathOf;

namespace {

TEST(PathText, AllSpellingsOfAPathResolveToOneText) {
    const struct {
        std::string path, resolved;
    } cases[] = {{"c:\\a\\\\b\\.\\c", "c:\\a\\b\\c"},      {"c:\\a\\..\\..\\b", "c:\\b"},
                 {"\\..\\etc\\passwd", "z:\\etc\\passwd"}, {"mirror\\x", "c:\\mirror\\x"},
                 {"c:\\ ..\\...", "c:\\ ..\\..."},         {"c:\\d:\\b\xff", "c:\\d:\\b\xff"}};
    for (const auto& c : cases) {
        EXPECT_EQ(ResolvePathText(c.path), c.resolved) << c.path;
    }
}

TEST(PathText, DrivesAreTheHomeFolderAndTheRoot) {
    const char* set = std::getenv("HOME");
    const std::string home = set != nullptr ? set : "";
    setenv("HOME", "/home/some body", 1);
    EXPECT_EQ(SystemPathOf("C:\\Websites\\"), "/home/some body/Websites");
    EXPECT_EQ(SystemPathOf("z:\\"), "/");
    EXPECT_EQ(SystemPathOf("\\srv\\c:\\"), "/srv/c:");
    setenv("HOME", "relative", 1);
    EXPECT_EQ(SystemPathOf("c:")->front(), '/');
    setenv("HOME", home.c_str(), 1);
}

TEST(PathText, SystemPathsBecomeText) {
    EXPECT_EQ(PathTextOf("/srv/mirror"), "\\srv\\mirror");
    EXPECT_EQ(PathTextOf("z:\\srv"), "z:\\srv");
    EXPECT_EQ(SystemPathOf(PathTextOf("./a/../b")), std::filesystem::current_path() / "b");
}

}  // namespace
