#include "search/page_finder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/path_text.h"
#include "tests/fakes/disk_system.h"
#include "tests/fakes/memory_files.h"

namespace {

std::string Find(const std::string& recorded, const platform::Files& files,
                 const std::string& folder = "c:\\copy") {
    search::PageFinder finder(folder, recorded, files);
    while (finder.Step()) {
    }
    return finder.Found();
}

TEST(PageFinder, FindsTheFileInAnyCase) {
    fakes::MemoryFiles files;
    for (const char* file :
         {"a.com\\page.html", "a.com\\Page.html", "a.com\\Other.HTML", "a.com\\DIR\\deep\\One.htm",
          "a.com\\Dir\\Deep\\two.htm", "a.com\\dir\\three.htm", "a.com\\\xC3\x89.html"}) {
        files.Have(std::string("c:\\copy\\") + file, "");
    }
    files.Have("c:\\copy\\a.com\\folder.html");
    files.Have("c:\\outside.html", "");
    files.on_look = [](const std::string& path) {
        EXPECT_TRUE(path.starts_with("c:\\copy")) << path << " is looked at";
    };
    const std::pair<const char*, const char*> cases[] = {
        {"a.com\\page.html", "a.com\\page.html"},
        {"a.com\\other.html", "a.com\\Other.HTML"},
        {"a.com\\dir\\deep\\one.htm", "a.com\\DIR\\deep\\One.htm"},
        {"a.com\\dir\\deep\\two.htm", "a.com\\Dir\\Deep\\two.htm"},
        {"a.com\\dir\\three.htm", "a.com\\dir\\three.htm"},
        {"a.com\\\xC3\x89.html", "a.com\\\xC3\x89.html"},
        {"a.com\\\xC3\xA9.html", ""},  // a record lower-cases only ASCII
        {"a.com\\folder.html", ""},
        {"a.com\\page.html\\x", ""},
        {"a.com", ""},
        {"none.com\\page.html", ""},
        {"..\\outside.html", ""},
        {"../outside.html", ""},
        {"a.com\\..\\a.com\\page.html", ""},
        {"\\a.com\\page.html", ""},
        {"", ""}};
    for (const auto& [recorded, file] : cases) {
        EXPECT_EQ(Find(recorded, files), *file == 0 ? "" : std::string("c:\\copy\\") + file)
            << recorded;
    }
    files.on_look = nullptr;
    EXPECT_EQ(Find("outside.html", files, "c:\\\\"), "c:\\outside.html");
    files.unreadable = {"c:\\copy", "c:\\copy\\a.com"};
    EXPECT_EQ(Find("a.com\\page.html", files), "c:\\copy\\a.com\\page.html")
        << "a folder that cannot be listed can still be entered";
    EXPECT_EQ(Find("a.com\\other.html", files), "");
}

TEST(PageFinder, SearchesALargeFolderInSteps) {
    fakes::MemoryFiles files;
    for (int i = 0; i < 5000; ++i)
        files.Have("c:\\copy\\a.com\\" + std::to_string(i) + ".HTML", "");
    search::PageFinder finder("c:\\copy", "a.com\\999.html", files);
    int steps = 0;
    while (finder.Step())
        ++steps;
    EXPECT_EQ(finder.Found(), "c:\\copy\\a.com\\999.HTML");
    EXPECT_GE(steps, 10);
}

TEST(PageFinder, FollowsNoSymbolicLinkOutOfTheFolder) {
    fakes::DiskSystem disk;
    const std::filesystem::path& root = disk.folder.SystemPath();
    std::filesystem::create_directories(root / "copy/a.com");
    std::filesystem::create_directories(root / "outside");
    disk.files.AppendFile(disk.folder.Text() + "\\outside\\x.html", {"x"});
    disk.files.AppendFile(disk.folder.Text() + "\\copy\\a.com\\Y.html", {"y"});
    std::error_code error;
    std::filesystem::create_directory_symlink(root / "outside", root / "copy/a.com/Out", error);
    if (error) GTEST_SKIP() << "no symbolic links: " << error.message();
    std::filesystem::create_symlink(root / "outside/x.html", root / "copy/a.com/x.html");
    std::filesystem::create_directory_symlink(root / "copy/a.com", root / "copy/In");
    const std::string copy = disk.folder.Text() + "\\copy";
    EXPECT_EQ(Find("a.com\\out\\x.html", disk.files, copy), "");
    EXPECT_EQ(Find("a.com\\x.html", disk.files, copy), "");
    EXPECT_EQ(Find("in\\y.html", disk.files, copy), copy + "\\In\\Y.html");
}

}  // namespace
