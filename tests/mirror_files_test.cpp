#include "output/mirror_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "extractor/admission.h"
#include "output/paths.h"
#include "output/records.h"
#include "output/save_file.h"
#include "tests/fakes/disk_system.h"
#include "tests/fakes/fake_system.h"

using namespace bas_Output;
using std::string_literals::operator""s;

namespace {

/// Paths with which a site may try to leave its folder. Followed literally, all lead outside the
/// target folder.
const std::string kAttacks[] = {"site.com\\..\\..\\outside\\a.html",
                                "site.com/.wwwww.w../.wwwww.w../.{./outside/a.html",
                                "../mirror-too/a.html"};

class Confinement : public testing::Test {
  protected:
    Confinement() {
        system.files.Have("c:\\mirror");
        system.files.Have("c:\\mirror-too\\old.txt", "old");
        system.files.Have("c:\\outside\\old.txt", "old");
        system.files.Have("c:\\outside\\a.html.tmp", kPlaceholderText);
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

TEST_F(Confinement, NoPathFromASiteWritesOutside) {
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

TEST_F(Confinement, AllowsFoldersInsideAndOnTheWayButNotInPlaceOfRecords) {
    crawl::TargetFolder = "C:\\new\\www.sites\\";
    for (const char* folder : {"C:\\", "C:\\new\\", "c:\\new\\www.sites", "c:\\new\\sites\\a",
                               "c:\\new\\sites\\a\\log.txt\\"}) {
        EXPECT_TRUE(MayMakeFolder(folder)) << folder;
    }
    for (const char* folder : {"C:\\other\\", "c:\\new\\site", "c:\\mirror\\a", "z:\\new",
                               "c:\\new\\sites\\Log.txt\\", "c:\\new\\sites\\transdd.txt"}) {
        EXPECT_FALSE(MayMakeFolder(folder)) << folder;
    }
}

TEST_F(Confinement, CreatesTheFoldersBeforeAForbiddenOne) {
    const struct {
        const char *path, *made;
    } cases[] = {{"C:\\new\\sites\\transdd.txt\\a", "c:\\new\\*c:\\new\\sites\\*"},
                 {"C:\\new\\sites\\log.txt\\deep\\in\\a", "c:\\new\\*c:\\new\\sites\\*"},
                 {"C:\\new\\other\\deep\\a", "c:\\new\\*"},
                 {"C:\\new\\sites\\h\\..\\..\\..\\outside\\new\\a",
                  "c:\\new\\*c:\\new\\sites\\*c:\\new\\sites\\h\\*"},
                 {"Z:\\a\\b\\c", ""}};
    crawl::TargetFolder = "C:\\new\\sites\\";
    const fakes::MemoryFiles before = system.files;
    for (const auto& c : cases) {
        system.files = before;
        crawl::MadeFolders.clear();
        std::string path = c.path;
        MakeLocalPath(path);
        EXPECT_EQ(crawl::MadeFolders, c.made) << path;
    }
}

TEST_F(Confinement, RemembersFailedWritesUnderEverySpelling) {
    system.files.refused = {"c:\\mirror\\bad"};
    EXPECT_FALSE(AppendMirrorFile("C:\\mirror\\bad", {"x"}));
    EXPECT_FALSE(WriteMirrorPage("C:\\mirror\\..\\x", "mirror", {"x"}));
    EXPECT_TRUE(HasMirrorFile("C:\\mirror\\\\dir\\..\\bad"));
    EXPECT_TRUE(HasMirrorFile("c:\\x"));
    EXPECT_FALSE(AppendMirrorFile("C:\\mirror\\a\0b"s, {"x"}));
    EXPECT_TRUE(HasMirrorFile("C:\\mirror\\a\0b"s));
    BeginMirror();
    EXPECT_FALSE(HasMirrorFile("C:\\mirror\\bad"));
}

TEST_F(Confinement, WritesAPageOnlyInTheFolderOfItsHost) {
    const struct {
        std::string host, path;
        bool written;
    } cases[] = {{"site.com", "site.com\\a", true},
                 {"site.com", "site.com\\..\\site.com\\.\\a\\..\\b", true},
                 {"site.com", "site.com", false},
                 {"site.com", "site.com\\..\\a", false},
                 {"site.com", "site.com\\..\\site.com.au\\a", false},
                 {"", "a", false},
                 {".", ".\\a", false},
                 {"..", "..\\mirror\\a", false},
                 {"_SEARCHDATA", "_SEARCHDATA\\site.com.txt", false}};
    for (const char* folder : {"site.com", " site.com", "site.com.au", "_SEARCHDATA"}) {
        system.files.Have(crawl::TargetFolder + folder);
    }
    for (const auto& c : cases) {
        EXPECT_EQ(bool(WriteMirrorPage(crawl::TargetFolder + c.path, c.host, {"x"})), c.written)
            << c.path;
    }
    crawl::TargetFolder = "C:\\";
    EXPECT_FALSE(WriteMirrorPage("C:\\a", "", {"x"}));
    EXPECT_FALSE(WriteMirrorPage("C:\\a", "..", {"x"}));
}

/// A user's own files in the target folder.
const std::string kUsersFiles[] = {
    ".bashrc",          "notes.tmp",          "mine.html",
    "filters.txt",      "photo.gif",          "other.net\\a.html",
    "other.net\\b.tmp", "papers\\a\\old.php", "papers\\draft.html.tmp",
    "site.com.tmp"};

TEST_F(Confinement, NoPathFromASiteTouchesTheUsersFiles) {
    for (const std::string& file : kUsersFiles) {
        system.files.Have(crawl::TargetFolder + file, "mine");
    }
    crawl::SiteHost = "site.com";
    for (const std::string& file : kUsersFiles) {
        const std::string name = file.ends_with(".tmp") ? file.substr(0, file.size() - 4) : file;
        for (const std::string up : {".*./", ".{./", ".|./", ".www../", "../"}) {
            for (const std::string& to : {name, name + "?"}) {
                const std::string link = "site.com/x.php?.html/" + up + up + to;
                bas_Extractor::AdmitLink("http://" + link, crawl::List1);
                for (const std::string before : {"\\", " \\ "}) {  // answered, and timed out
                    std::string address = before + link;
                    SaveFile("HTTP/1.0 200 OK\r\n\r\npage", address, 1);
                }
            }
        }
    }
    EXPECT_FALSE(AppendMirrorFile(crawl::TargetFolder + "notes.tmp", {"x"}));

    system.files.Have("c:\\mirror\\site.com\\good.html", "good");
    std::string timed_out = " \\ site.com/.*./site.com/good.html";
    SaveFile("no answer", timed_out, 1);
    EXPECT_EQ(system.files.At("c:\\mirror\\site.com\\good.html"), "good");
    for (const std::string& file : kUsersFiles) {
        EXPECT_EQ(system.files.At(crawl::TargetFolder + file), "mine") << file;
    }
    EXPECT_TRUE(system.page_text.pages.empty()) << "nor is any of them read";
}

TEST_F(Confinement, SweepsCreatedFoldersAndNoLookAlikes) {
    system.files.Have("c:\\mirror\\SITE.com\\kept.tmp", "x");
    for (const std::string file : {"Site.com\\1.tmp", "siTe.com\\2.tmp"}) {
        std::string path = "C:\\mirror\\" + file;
        ASSERT_TRUE(AppendToFile("x", path));
    }
    SweepMadeFolder("c:\\mirror\\site.com\\");
    system.files.Have("c:\\mirror\\other.net\\kept.tmp", "x");
    SweepMadeFolder("c:\\mirror\\other.net\\");
    EXPECT_EQ(system.files.At("c:\\mirror\\other.net\\kept.tmp"), "x")
        << "the folder existed before";
    EXPECT_EQ(system.files.At("c:\\mirror\\SITE.com\\kept.tmp"), "x");
    EXPECT_EQ(system.files.At("c:\\mirror\\Site.com\\1.tmp"), "(none)");
    EXPECT_EQ(system.files.At("c:\\mirror\\siTe.com\\2.tmp"), "(none)");
}

TEST(ConfinementOnTheSystem, WritesThroughNoSymbolicLinkThatLeadsElsewhere) {
    fakes::DiskSystem disk;
    const fakes::TempFolder& folder = disk.folder;
    const auto mirror = folder.SystemPath() / "mirror";
    for (const char* made : {"site.com/real", "other.net"}) {
        std::filesystem::create_directories(mirror / made);
    }
    std::ofstream(folder.SystemPath() / "outside.txt") << "old";
    std::ofstream(mirror / "other.net/a.html") << "old";
    for (const auto& [link, target] :
         std::map<std::string, std::string>{{"log.txt", "../outside.txt"},
                                            {"site.com/outside", "../../"},
                                            {"site.com/other", "../other.net"},
                                            {"site.com/b.html", "../other.net/a.html"},
                                            {"site.com/in", "real"}}) {
        std::error_code error;
        std::filesystem::create_symlink(target, mirror / link, error);
        if (error == std::errc::function_not_supported)
            GTEST_SKIP() << "no symbolic links on this system";
    }

    crawl::TargetFolder = folder.Text() + "\\mirror\\";
    for (const std::string path : {"log.txt", "site.com\\outside\\outside.txt",
                                   "site.com\\other\\a.html", "site.com\\b.html"}) {
        EXPECT_FALSE(HasMirrorFile(crawl::TargetFolder + path)) << path;
        EXPECT_FALSE(AppendMirrorFile(crawl::TargetFolder + path, {"x"})) << path;
        EXPECT_FALSE(WriteMirrorPage(crawl::TargetFolder + path, "site.com", {"x"})) << path;
        EXPECT_EQ(ReadMirrorFile(crawl::TargetFolder + path), std::nullopt) << path;
    }
    EXPECT_TRUE(WriteMirrorPage(crawl::TargetFolder + "site.com\\in\\a.html", "site.com", {"x"}));
    EXPECT_EQ(disk.files.ReadFile(crawl::TargetFolder + "site.com\\real\\a.html"), "x");
    EXPECT_EQ(disk.files.ReadFile(folder.Text() + "\\outside.txt"), "old");
    EXPECT_EQ(disk.files.ReadFile(crawl::TargetFolder + "other.net\\a.html"), "old");
}

}  // namespace
