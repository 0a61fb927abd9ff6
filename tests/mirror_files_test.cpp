#include "output/mirror_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "output/paths.h"
#include "output/records.h"
#include "output/save_file.h"
#include "platform/system_files.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/temp_folder.h"

using namespace bas_Output;

namespace {

/// What a site may say to climb out of its folder. All lead to c:\outside\ when they are believed.
const std::string kAttacks[] = {
    "site.com\\..\\..\\outside\\a.html",
    "site.com/.wwwww.w../.wwwww.w../.{./outside/a.html",
    "../mirror-too/a.html",
};

class Confinement : public testing::Test {
  protected:
    Confinement() {
        system.files.Have("c:\\mirror");
        system.files.Have("c:\\mirror-too\\old.txt", "old");
        system.files.Have("c:\\outside\\old.txt", "old");
        system.files.Have("c:\\outside\\a.html.tmp", "mine");
        crawl::TargetFolder = "C:\\mirror\\";
        BeginMirror();
    }

    /// Everything that is not in the target folder.
    std::map<std::string, std::string> Outside() const {
        std::map<std::string, std::string> outside;
        for (const auto& [path, contents] : system.files.files) {
            if (!path.starts_with("c:\\mirror\\")) outside[path] = contents;
        }
        for (const std::string& folder : system.files.folders) {
            if (!folder.starts_with("c:\\mirror\\")) outside[folder] = "(folder)";
        }
        return outside;
    }

    fakes::FakeSystem system;
};

TEST_F(Confinement, NothingThatASiteSaysWritesOutside) {
    const auto before = Outside();
    for (const std::string& attack : kAttacks) {
        std::string placeholder = crawl::TargetFolder + CleanLinkName(attack) + ".tmp";
        AppendToFile("placeholder", placeholder);
        std::string address = "\\" + attack;
        SaveFile("HTTP/1.0 200 OK\r\n\r\npage", address, 1);
        crawl::Slots[1].Host = attack;
        RecordSearchText("text", 1, crawl::TargetFolder + attack);
        EXPECT_EQ(Outside(), before) << attack;
    }
    for (const char* path : {"c:\\outside\\x", "\\outside\\x", "http://c:\\outside\\x", "x", ""}) {
        std::string record = path;
        EXPECT_FALSE(AppendToFile("text", record)) << path;
    }
    EXPECT_EQ(Outside(), before);
}

TEST_F(Confinement, ParentsOfTheTargetFolderMayBeMade) {
    crawl::TargetFolder = "C:\\new\\www.sites\\";
    for (const char* folder : {"C:\\", "C:\\new\\", "c:\\new\\www.sites", "c:\\new\\sites\\a"}) {
        EXPECT_TRUE(MayMakeFolder(folder)) << folder;
    }
    for (const char* folder : {"C:\\other\\", "c:\\new\\site", "c:\\mirror\\a", "z:\\new"}) {
        EXPECT_FALSE(MayMakeFolder(folder)) << folder;
    }
}

TEST_F(Confinement, FailedWritesAreRememberedUnderEverySpelling) {
    system.files.refused = {"c:\\mirror\\bad"};
    EXPECT_FALSE(AppendMirrorFile("C:\\mirror\\bad", {"x"}));
    EXPECT_FALSE(WriteMirrorFile("C:\\mirror\\..\\x", {"x"}));
    EXPECT_TRUE(WriteFailedBefore("C:\\mirror\\\\dir\\..\\bad"));
    EXPECT_TRUE(WriteFailedBefore("c:\\x"));
    BeginMirror();
    EXPECT_FALSE(WriteFailedBefore("C:\\mirror\\bad"));
}

TEST_F(Confinement, SweepsTheFoldersMadeAndNoLookAlikes) {
    system.files.Have("c:\\mirror\\SITE.com\\kept.tmp", "x");
    for (const std::string file : {"Site.com\\1.tmp", "siTe.com\\2.tmp"}) {
        std::string path = "C:\\mirror\\" + file;
        ASSERT_TRUE(AppendToFile("x", path));
    }
    SweepMadeFolder("c:\\mirror\\site.com\\");
    EXPECT_EQ(system.files.At("c:\\mirror\\SITE.com\\kept.tmp"), "x");
    EXPECT_EQ(system.files.At("c:\\mirror\\Site.com\\1.tmp"), "(none)");
    EXPECT_EQ(system.files.At("c:\\mirror\\siTe.com\\2.tmp"), "(none)");
}

TEST(ConfinementOnTheSystem, WritesThroughNoLinkThatLeadsOutside) {
    const fakes::TempFolder folder;
    const auto root = folder.SystemPath();
    std::filesystem::create_directory(root / "mirror");
    std::ofstream(root / "outside.txt") << "old";
    std::filesystem::create_symlink(root / "outside.txt", root / "mirror/log.txt");

    fakes::FakeSystem fake;
    platform::SystemFiles files(root.string());
    const platform::Services services{platform::System().events,
                                      files,
                                      fake.settings,
                                      fake.page_text,
                                      fake.processes,
                                      fake.boxes};
    platform::InstallSystem(&services);
    crawl::TargetFolder = folder.Text() + "\\mirror\\";
    const std::string path = crawl::TargetFolder + "log.txt";
    EXPECT_FALSE(AppendMirrorFile(path, {"x"}));
    EXPECT_FALSE(WriteMirrorFile(path, {"x"}));
    EXPECT_EQ(ReadMirrorFile(path), std::nullopt);
    EXPECT_EQ(files.ReadFile(folder.Text() + "\\outside.txt"), "old");
}

}  // namespace
