#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "platform/system_files.h"
#include "tests/fakes/temp_folder.h"

using namespace std::string_literals;

namespace {

template <typename Work>
void WithLimit(decltype(RLIMIT_AS) resource, rlim_t value, const Work& work) {
    rlimit old;
    ASSERT_EQ(getrlimit(resource, &old), 0);
    const rlimit limit{value, old.rlim_max};
    setrlimit(resource, &limit);
    work();
    setrlimit(resource, &old);
}

class SystemFilesTest : public testing::Test {
  protected:
    std::string In(const std::string& name) const { return folder.Text() + "\\" + name; }
    void Link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, folder.SystemPath() / name);
    }
    auto EntryCount() const {
        return std::distance(std::filesystem::directory_iterator(folder.SystemPath()), {});
    }
    fakes::TempFolder folder;
    platform::SystemFiles files{folder.SystemPath().string() + "/"};
};

TEST_F(SystemFilesTest, AFullDiskLeavesTheOldFileOrNone) {
    ASSERT_TRUE(files.WriteFile(In("old"), {"old"}));
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    // A small write may fail only when the file is closed.
    for (const std::size_t size : {100, 100'000}) {
        const std::string large(size, 'x');
        WithLimit(RLIMIT_FSIZE, 64, [&] {
            EXPECT_FALSE(files.WriteFile(In("old"), {large}));
            EXPECT_FALSE(files.AppendFile(In("old"), {large}));
            EXPECT_FALSE(files.AppendFile(In("new"), {large}));
        });
    }
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(files.ReadFile(In("old")), "old");
    EXPECT_EQ(EntryCount(), 1);
}

TEST_F(SystemFilesTest, TemporaryFilesReplaceNothingAndAreRemoved) {
    ASSERT_TRUE(files.WriteFile(In("~vantorin0.tmp"), {"kept"}));
    ASSERT_TRUE(files.CreateFolder(In("folder")));
    EXPECT_FALSE(files.WriteFile(In("folder"), {"x"}));
    EXPECT_TRUE(files.WriteFile(In("file"), {"x"}));
    EXPECT_EQ(files.ReadFile(In("~vantorin0.tmp")), "kept");
    EXPECT_EQ(EntryCount(), 3);
}

#ifndef __SANITIZE_ADDRESS__  // which ends the program when memory runs out
TEST_F(SystemFilesTest, DoesNotReadAFileLargerThanTheMemory) {
    ASSERT_TRUE(files.WriteFile(In("f"), {"x"}));
    std::filesystem::resize_file(folder.SystemPath() / "f", std::uintmax_t{1} << 40);
    WithLimit(RLIMIT_AS, rlim_t{1} << 40,
              [&] { EXPECT_EQ(files.ReadFile(In("f")), std::nullopt); });
}
#endif

TEST_F(SystemFilesTest, NeitherOpensPipesNorWaitsForThem) {
    const std::string pipe = folder.SystemPath() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(files.AppendFile(In("pipe"), {"x"}));
    EXPECT_EQ(files.ReadFile(In("pipe")), std::nullopt);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_FALSE(files.AppendFile(In("pipe"), {"x"})) << "even if it has a reader";
    char byte;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(SystemFilesTest, FollowsSymbolicLinksToDecideWhatIsInside) {
    std::filesystem::create_directories(folder.SystemPath() / "mirror/real");
    std::filesystem::create_directory(folder.SystemPath() / "mirror/a\\b");
    std::filesystem::create_directory(folder.SystemPath() / "outside");
    Link("../outside", "mirror/out");
    Link("real", "mirror/in");
    Link("../nowhere", "mirror/dangling");
    Link("loop", "mirror/loop");
    Link("mirror", "alias");
    EXPECT_TRUE(files.IsInside(In("mirror\\in\\x"), In("mirror")));
    const std::string too_long = "mirror\\" + std::string(256, 'n');
    for (const std::string& outside : {"mirror\\out\\x\\y"s, "mirror\\dangling"s,
                                       "mirror\\dangling\\x"s, "mirror\\loop\\x"s, too_long}) {
        EXPECT_FALSE(files.IsInside(In(outside), In("mirror"))) << outside;
    }
    EXPECT_TRUE(files.IsInside(In("mirror\\new"), In("alias")));
    EXPECT_TRUE(files.IsLink(In("mirror\\dangling")));
    EXPECT_FALSE(files.WriteNewFile(In("mirror\\dangling"), {"x"}));
    EXPECT_FALSE(files.IsLink(In("mirror\\real")));
    EXPECT_FALSE(files.AppendFile(In("mirror\\dangling"), {"x"}));
    EXPECT_EQ(files.Subfolders(In("mirror")), (std::vector<std::string>{"in", "out", "real"}))
        << "except names that path text cannot contain";
}

}  // namespace
