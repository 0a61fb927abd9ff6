#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>

#include "platform/host_files.h"
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
    Host, FilesContract, testing::Values([] {
        auto folder = std::make_shared<fakes::TempFolder>();
        return FilesUnderTest{std::make_unique<platform::HostFiles>("/"), folder->Text(), folder};
    }));

}  // namespace contracts

namespace {

class HostFilesTest : public testing::Test {
  protected:
    std::string In(const std::string& name) const { return folder.Text() + "\\" + name; }
    void Link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, folder.HostPath() / name);
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.HostPath())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    fakes::TempFolder folder;
    platform::HostFiles files{folder.HostPath().string() + "/"};
};

/// Writes stop short at a length, as on a disk that fills up.
class WritesStopAt {
  public:
    explicit WritesStopAt(rlim_t bytes) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_limit_);
        const rlimit limit{bytes, old_limit_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~WritesStopAt() {
        setrlimit(RLIMIT_FSIZE, &old_limit_);
        std::signal(SIGXFSZ, old_handler_);
    }

  private:
    rlimit old_limit_{};
    void (*old_handler_)(int);
};

TEST_F(HostFilesTest, ProgramFolderIsPathText) {
    EXPECT_EQ(files.ProgramFolder(), folder.Text());
}

TEST_F(HostFilesTest, FullDiskLeavesTheOldFileOrNone) {
    ASSERT_TRUE(files.WriteFile(In("old"), {"old"}));
    const std::string large(100'000, 'x');
    {
        const WritesStopAt limit(65'536);
        EXPECT_FALSE(files.WriteFile(In("old"), {large}));
        EXPECT_FALSE(files.WriteFile(In("new"), {"head", large}));
        EXPECT_FALSE(files.AppendFile(In("old"), {large}));
        EXPECT_FALSE(files.AppendFile(In("new"), {large}));
        EXPECT_TRUE(files.WriteFile(In("small"), {"fits"}));
    }
    EXPECT_EQ(files.ReadFile(In("old")), "old");
    EXPECT_EQ(Names(), (std::vector<std::string>{"old", "small"}));
}

TEST_F(HostFilesTest, RefusedWriteLeavesNothing) {
    ASSERT_TRUE(files.CreateFolder(In("in the way")));
    EXPECT_FALSE(files.WriteFile(In("in the way"), {"x"}));
    EXPECT_FALSE(files.WriteFile(In(std::string(256, 'n')), {"x"}));
    EXPECT_EQ(Names(), (std::vector<std::string>{"in the way"}));
    EXPECT_FALSE(files.WriteFile("z:\\proc\\x.txt", {"x"}));
}

TEST_F(HostFilesTest, PipesAndDevicesAreNoFilesAndNobodyWaitsForThem) {
    ASSERT_EQ(mkfifo((folder.HostPath() / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(files.AppendFile(In("pipe"), {"x"}));
    EXPECT_EQ(files.ReadFile(In("pipe")), std::nullopt);
    EXPECT_FALSE(files.AppendFile("z:\\dev\\null", {"x"}));
    EXPECT_EQ(files.ReadFile("z:\\dev\\zero"), std::nullopt);
}

TEST_F(HostFilesTest, FollowsLinksToSeeWhatLiesInside) {
    for (const char* name : {"mirror", "mirror\\real", "outside"}) {
        ASSERT_TRUE(files.CreateFolder(In(name)));
    }
    Link("../outside", "mirror/out");
    Link("real", "mirror/in");
    Link("../nowhere", "mirror/dangling");
    Link("loop", "mirror/loop");
    Link("mirror", "alias");
    const struct {
        const char *path, *folder;
        bool inside;
    } cases[] = {
        {"mirror\\in\\x", "mirror", true},        {"mirror\\out", "mirror", false},
        {"mirror\\out\\x\\y", "mirror", false},   {"mirror\\dangling", "mirror", false},
        {"mirror\\dangling\\x", "mirror", false}, {"mirror\\loop\\x", "mirror", false},
        {"mirror\\out\\..\\x", "mirror", true},   {"alias\\new", "mirror", true},
        {"mirror\\new", "alias", true},           {"mirror\\real\\x", "mirror\\in", true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(files.IsInside(In(c.path), In(c.folder)), c.inside) << c.path << " " << c.folder;
    }
    EXPECT_TRUE(files.IsLink(In("mirror\\dangling")));
    EXPECT_FALSE(files.IsLink(In("mirror\\real")));
    EXPECT_EQ(files.Subfolders(In("mirror")), (std::vector<std::string>{"in", "out", "real"}));
}

TEST_F(HostFilesTest, OffersNoFolderThatPathTextCannotName) {
    std::filesystem::create_directory(folder.HostPath() / "a\\b");
    EXPECT_EQ(files.Subfolders(folder.Text()), std::vector<std::string>());
}

}  // namespace
