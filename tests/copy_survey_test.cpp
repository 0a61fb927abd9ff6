#include "output/copy_survey.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <tuple>

#include "output/mirror_files.h"
#include "tests/fakes/disk_system.h"
#include "tests/fakes/fake_system.h"

using bas_Output::CopySurvey;
using Placeholders = CopySurvey::Placeholders;

namespace {

const std::string kPlaceholder = std::string(bas_Output::kPlaceholderText) + "\r\n";

/// The numbers of files, remaining placeholders and removed placeholders. Calls `in_between` after
/// each step.
std::tuple<std::int64_t, std::int64_t, std::int64_t> Walk(
    const std::string& folder, Placeholders placeholders,
    const std::function<void()>& in_between = [] {}) {
    CopySurvey survey(folder, placeholders);
    while (survey.Step())
        in_between();
    return {survey.Files(), survey.Unfinished(), survey.Removed()};
}

class CopySurveyTest : public testing::Test {
  protected:
    fakes::FakeSystem system;
    fakes::MemoryFiles& files = system.files;
};

TEST_F(CopySurveyTest, KnowsTheFolderOfAHost) {
    const struct {
        const char *target, *host;
        std::optional<std::string> folder;
    } cases[] = {{"c:\\mirror\\", "site.com", "c:\\mirror\\site.com"},
                 {"c:\\www.mirror\\", "si?te.com", "c:\\mirror\\si_te.com"},
#ifndef _WIN32  // which has a current drive, and more drives than these two
                 {"\\", "site.com", "z:\\site.com"},
                 {"q:\\mirror\\", "site.com", std::nullopt},
#endif
                 {"c:\\mirror\\", "", std::nullopt},
                 {"c:\\mirror\\", ".", std::nullopt},
                 {"c:\\mirror\\", "..", std::nullopt},
                 {"c:\\mirror\\", "a\\b", std::nullopt}};
    for (const auto& c : cases)
        EXPECT_EQ(bas_Output::HostFolder(c.target, c.host), c.folder) << c.target << c.host;
}

TEST_F(CopySurveyTest, CountsFilesAndRemovesOnlyTheHostsPlaceholdersByTheirText) {
    files.Have("c:\\m\\site.com\\index.html", "x");
    files.Have("c:\\m\\site.com\\a\\b\\c.html", "x");
    files.Have("c:\\m\\site.com\\a\\empty", "");
    files.Have("c:\\m\\site.com\\a\\mine.tmp", "notes of the user's");
    files.Have("c:\\m\\site.com\\a\\odd.html", kPlaceholder);
    files.Have("c:\\m\\site.com\\d.html.tmp", kPlaceholder + kPlaceholder);
    files.Have("c:\\m\\site.com\\a\\b\\e.html.tmp", kPlaceholder);
    files.Have("c:\\m\\site.com\\kept\\f.html.tmp", kPlaceholder);
    files.Have("c:\\m\\site.com\\g.tmp\\h.html", "x");
    files.Have("c:\\m\\other.com\\i.html.tmp", kPlaceholder);
    files.Have("c:\\m\\j.html.tmp", kPlaceholder);
    files.read_only = {"c:\\m\\site.com\\kept"};
    const auto before = files.files;
    EXPECT_EQ(Walk("c:\\m\\site.com", Placeholders::Count), std::tuple(6, 3, 0));
    EXPECT_EQ(files.files, before);
    EXPECT_EQ(Walk("c:\\m\\site.com", Placeholders::Remove), std::tuple(6, 1, 2));
    EXPECT_EQ(files.files.size(), before.size() - 2);
    EXPECT_EQ(Walk("c:\\m\\site.com", Placeholders::Count), std::tuple(6, 1, 0));
    EXPECT_EQ(Walk("c:\\m\\nowhere.com", Placeholders::Remove), std::tuple(0, 0, 0));
}

TEST_F(CopySurveyTest, LooksAtOneEntryPerStep) {
    for (int i = 0; i < 200; ++i)
        files.Have("c:\\m\\site.com\\" + std::to_string(i) + ".html.tmp", kPlaceholder);
    int looks = 0;
    files.on_look = [&](const std::string&) { ++looks; };
    CopySurvey survey("c:\\m\\site.com", Placeholders::Count);
    for (bool more = true; more;) {
        looks = 0;
        more = survey.Step();
        EXPECT_LE(looks, 2);
    }
    EXPECT_EQ(survey.Unfinished(), 200);
}

class CopySurveyOnDisk : public testing::Test {
  protected:
    void SetUp() override {
        std::error_code error;
        std::filesystem::create_symlink("site.com", root / "alias.com", error);
        if (error) GTEST_SKIP() << "no symbolic links: " << error.message();
        Have("outside/theirs.tmp");
        Have("site.com/in/own.tmp");
    }
    void Have(const std::string& path) const {
        std::filesystem::create_directories((root / path).parent_path());
        std::ofstream(root / path) << bas_Output::kPlaceholderText;
    }
    fakes::DiskSystem system;
    const std::filesystem::path root = system.folder.SystemPath();
    const std::string copy = system.folder.Text();
};

TEST_F(CopySurveyOnDisk, FollowsNoSymbolicLink) {
    std::filesystem::create_symlink("../outside", root / "site.com/folder");
    std::filesystem::create_symlink("../outside/theirs.tmp", root / "site.com/file.tmp");
    std::filesystem::create_symlink("..", root / "site.com/loop");
    EXPECT_EQ(Walk(copy + "\\alias.com", Placeholders::Remove), std::tuple(0, 0, 0));
    EXPECT_EQ(Walk(copy + "\\site.com", Placeholders::Remove), std::tuple(0, 0, 1));
    EXPECT_TRUE(std::filesystem::exists(root / "outside/theirs.tmp"));
}

TEST_F(CopySurveyOnDisk, RemovesNothingBehindAFolderThatHasBecomeALink) {
    Have("outside/own.tmp");
    bool swapped = false;
    Walk(copy + "\\site.com", Placeholders::Remove, [&] {
        if (std::exchange(swapped, true)) return;
        std::filesystem::rename(root / "site.com/in", root / "moved");
        std::filesystem::create_directory_symlink("../outside", root / "site.com/in");
    });
    EXPECT_TRUE(std::filesystem::exists(root / "outside/own.tmp"));
}

}  // namespace
