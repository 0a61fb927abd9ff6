#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "platform/system_files.h"
#include "tests/contracts/files_contract.h"
#include "tests/fakes/memory_files.h"
#include "tests/fakes/temp_folder.h"

namespace contracts {

INSTANTIATE_TEST_SUITE_P(Memory, FilesContract, testing::Values([] {
                             auto files = std::make_unique<fakes::MemoryFiles>();
                             files->Have("z:\\work");
                             return FilesUnderTest{std::move(files), "z:\\work", nullptr};
                         }));

INSTANTIATE_TEST_SUITE_P(
    System, FilesContract, testing::Values([] {
        auto folder = std::make_shared<fakes::TempFolder>();
        return FilesUnderTest{std::make_unique<platform::SystemFiles>("/"), folder->Text(), folder};
    }));

}  // namespace contracts

namespace {

class HostFilesTest : public testing::Test {
  protected:
    std::string In(const std::string& name) const { return folder.Text() + "\\" + name; }
    void Link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, folder.SystemPath() / name);
    }
    fakes::TempFolder folder;
    platform::SystemFiles files{folder.SystemPath().string() + "/"};
};

TEST_F(HostFilesTest, FullDiskLeavesTheOldFileOrNone) {
    ASSERT_TRUE(files.WriteFile(In("old"), {"old"}));
    const std::string large(100'000, 'x');
    rlimit limit;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small{65'536, limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_FALSE(files.WriteFile(In("old"), {large}));
    EXPECT_FALSE(files.AppendFile(In("old"), {large}));
    EXPECT_FALSE(files.AppendFile(In("new"), {large}));
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(files.ReadFile(In("old")), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.SystemPath()), {}), 1);
}

TEST_F(HostFilesTest, PipesAreNoFilesAndNobodyWaitsForThem) {
    const std::string pipe = folder.SystemPath() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(files.AppendFile(In("pipe"), {"x"}));
    EXPECT_EQ(files.ReadFile(In("pipe")), std::nullopt);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_FALSE(files.AppendFile(In("pipe"), {"x"})) << "also when somebody reads it";
    char byte;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(HostFilesTest, FollowsLinksToSeeWhatLiesInside) {
    std::filesystem::create_directories(folder.SystemPath() / "mirror/real");
    std::filesystem::create_directory(folder.SystemPath() / "mirror/a\\b");
    std::filesystem::create_directory(folder.SystemPath() / "outside");
    Link("../outside", "mirror/out");
    Link("real", "mirror/in");
    Link("../nowhere", "mirror/dangling");
    Link("loop", "mirror/loop");
    Link("mirror", "alias");
    EXPECT_TRUE(files.IsInside(In("mirror\\in\\x"), In("mirror")));
    for (const char* outside : {"mirror\\out\\x\\y", "mirror\\dangling", "mirror\\loop\\x"}) {
        EXPECT_FALSE(files.IsInside(In(outside), In("mirror"))) << outside;
    }
    EXPECT_TRUE(files.IsInside(In("mirror\\new"), In("alias")));
    EXPECT_TRUE(files.IsLink(In("mirror\\dangling")));
    EXPECT_FALSE(files.IsLink(In("mirror\\real")));
    EXPECT_EQ(files.Subfolders(In("mirror")), (std::vector<std::string>{"in", "out", "real"}))
        << "none that path text cannot name";
}

}  // namespace
