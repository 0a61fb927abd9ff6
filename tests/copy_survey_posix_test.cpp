#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "output/copy_survey.h"
#include "output/mirror_files.h"
#include "tests/fakes/disk_system.h"

namespace {

using bas_Output::CopySurvey;

/// Runs the survey to its end. Calls `in_between` after each step.
CopySurvey Remove(const std::string& folder, const std::function<void()>& in_between = nullptr) {
    CopySurvey survey(folder, CopySurvey::Placeholders::Remove);
    while (survey.Step()) {
        if (in_between) in_between();
    }
    return survey;
}

class CopySurveyOnDisk : public testing::Test {
  protected:
    void Have(const std::string& path) const {
        std::filesystem::create_directories((root / path).parent_path());
        std::ofstream(root / path) << bas_Output::kPlaceholderText;
    }
    fakes::DiskSystem system;
    const std::filesystem::path root = system.folder.SystemPath();
    const std::string site = system.folder.Text() + "\\site.com";
};

TEST_F(CopySurveyOnDisk, FollowsNoSymbolicLink) {
    Have("site.com/in/own.tmp");
    Have("outside/safe.tmp");
    std::filesystem::create_symlink("../outside", root / "site.com/folder");
    std::filesystem::create_symlink("../outside/safe.tmp", root / "site.com/file.tmp");
    std::filesystem::create_symlink("..", root / "site.com/loop");
    std::filesystem::create_symlink("site.com", root / "alias.com");
    EXPECT_EQ(Remove(system.folder.Text() + "\\alias.com").Removed(), 0);
    const CopySurvey survey = Remove(site);
    EXPECT_EQ(survey.Removed(), 1);
    EXPECT_EQ(survey.Files() + survey.Unfinished(), 0);
    EXPECT_TRUE(std::filesystem::exists(root / "outside/safe.tmp"));
}

TEST_F(CopySurveyOnDisk, RemovesNothingBehindAFolderThatHasBecomeALink) {
    Have("site.com/folder/own.tmp");
    Have("outside/own.tmp");
    bool swapped = false;
    Remove(site, [&] {
        if (swapped) return;
        swapped = true;
        std::filesystem::rename(root / "site.com/folder", root / "moved");
        std::filesystem::create_directory_symlink("../outside", root / "site.com/folder");
    });
    EXPECT_TRUE(std::filesystem::exists(root / "outside/own.tmp"));
}

}  // namespace
