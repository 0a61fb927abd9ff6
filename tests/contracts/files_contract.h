#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

/// What every implementation of the files must do. An implementation's test instantiates the suite
/// with a way to make it and an empty folder to work in.
namespace contracts {

struct FilesUnderTest {
    std::unique_ptr<platform::Files> files;
    std::string folder;           ///< as path text, without a final "\"
    std::shared_ptr<void> owned;  ///< goes after the test
};

class FilesContract : public testing::TestWithParam<std::function<FilesUnderTest()>> {
  protected:
    std::string In(const std::string& name) const { return subject.folder + "\\" + name; }
    std::string Read(const std::string& name) const {
        return files.ReadFile(In(name)).value_or("(none)");
    }

    FilesUnderTest subject = GetParam()();
    platform::Files& files = *subject.files;
};

TEST_P(FilesContract, CreatesExactlyOneFolder) {
    EXPECT_FALSE(files.CreateFolder(In("a\\b")));
    EXPECT_TRUE(files.CreateFolder(In("a")));
    EXPECT_FALSE(files.CreateFolder(In("a\\")));
    EXPECT_TRUE(files.CreateFolder(In("a\\b\\")));
    EXPECT_TRUE(files.WriteFile(In("file"), {}));
    EXPECT_FALSE(files.CreateFolder(In("file")));
    EXPECT_TRUE(files.FolderExists(In("a\\b")));
    EXPECT_FALSE(files.FolderExists(In("file")));
    EXPECT_FALSE(files.FolderExists(In("c")));
}

TEST_P(FilesContract, KeepsWhatWasWritten) {
    const std::string bytes("\0\r\n\xff", 4);
    EXPECT_EQ(files.ReadFile(In("f")), std::nullopt);
    EXPECT_EQ(files.FileLength(In("f")), std::nullopt);
    EXPECT_TRUE(files.WriteFile(In("f"), {"longer than ", bytes, " the next"}));
    EXPECT_EQ(Read("f"), "longer than " + bytes + " the next");
    EXPECT_TRUE(files.WriteFile(In("f"), {bytes, "x"}));
    EXPECT_EQ(Read("f"), bytes + "x");
    EXPECT_EQ(files.FileLength(In("f")), 5);
    EXPECT_TRUE(files.AppendFile(In("f"), {"y", "z"}));
    EXPECT_TRUE(files.AppendFile(In("new"), {"y", "z"}));
    EXPECT_EQ(Read("f"), bytes + "xyz");
    EXPECT_EQ(Read("new"), "yz");
    EXPECT_TRUE(files.WriteFile(In("empty"), {}));
    EXPECT_EQ(Read("empty"), "");
    EXPECT_TRUE(files.DeleteFile(In("f")));
    EXPECT_FALSE(files.DeleteFile(In("f")));
    EXPECT_EQ(files.FileLength(In("f")), std::nullopt);
}

TEST_P(FilesContract, FoldersAreNoFiles) {
    ASSERT_TRUE(files.CreateFolder(In("a")));
    ASSERT_TRUE(files.WriteFile(In("a\\kept"), {"kept"}));
    EXPECT_EQ(files.FileLength(In("a")), 0);
    EXPECT_EQ(files.ReadFile(In("a")), std::nullopt);
    EXPECT_FALSE(files.WriteFile(In("a"), {"x"}));
    EXPECT_FALSE(files.AppendFile(In("a"), {"x"}));
    EXPECT_FALSE(files.DeleteFile(In("a")));
    EXPECT_FALSE(files.WriteFile(In("nowhere\\f"), {"x"}));
    EXPECT_FALSE(files.AppendFile(In("nowhere\\f"), {"x"}));
    EXPECT_FALSE(files.WriteFile(In("a\\kept\\f"), {"x"}));
    EXPECT_EQ(Read("a\\kept"), "kept");
}

TEST_P(FilesContract, RefusesWhatIsNoName) {
    const std::string long_name(255, 'n');
    EXPECT_TRUE(files.WriteFile(In(long_name), {"x"}));
    EXPECT_TRUE(files.AppendFile(In(long_name), {"y"}));
    EXPECT_EQ(Read(long_name), "xy");
    for (const std::string& path :
         {In(long_name + "n"), In(std::string("a\0b", 3)), std::string(), std::string("q:\\a")}) {
        EXPECT_FALSE(files.WriteFile(path, {"x"})) << path;
        EXPECT_FALSE(files.AppendFile(path, {"x"})) << path;
        EXPECT_FALSE(files.CreateFolder(path)) << path;
        EXPECT_FALSE(files.DeleteFile(path)) << path;
        EXPECT_FALSE(files.FolderExists(path)) << path;
        EXPECT_EQ(files.FileLength(path), std::nullopt) << path;
        EXPECT_EQ(files.ReadFile(path), std::nullopt) << path;
        EXPECT_TRUE(files.Subfolders(path).empty()) << path;
        EXPECT_FALSE(files.IsLink(path)) << path;
    }
    EXPECT_EQ(files.ReadFile(In("a")), std::nullopt);
}

TEST_P(FilesContract, ResolvesDotsInTheText) {
    EXPECT_TRUE(files.WriteFile(In("nowhere\\..\\.\\\\f"), {"x"}));
    EXPECT_EQ(Read("f"), "x");
    EXPECT_EQ(Read("f\\..\\f"), "x");
}

TEST_P(FilesContract, TellsNamesApartByCase) {
    EXPECT_TRUE(files.WriteFile(In("a.html"), {"small"}));
    EXPECT_TRUE(files.WriteFile(In("A.html"), {"large"}));
    EXPECT_EQ(Read("a.html"), "small");
    EXPECT_EQ(Read("A.html"), "large");
}

TEST_P(FilesContract, DeletesBySuffixInOneFolder) {
    for (const char* folder : {"a", "a\\b", "a\\folder.tmp"}) {
        ASSERT_TRUE(files.CreateFolder(In(folder)));
    }
    for (const char* name : {"a\\1.tmp", "a\\2.html.tmp", "a\\.tmp", "a\\3.tmp.html", "a\\tmp",
                             "a\\b\\4.tmp", "5.tmp"}) {
        ASSERT_TRUE(files.WriteFile(In(name), {"x"}));
    }
    files.DeleteBySuffix(In("a\\"), ".tmp");
    for (const char* gone : {"a\\1.tmp", "a\\2.html.tmp", "a\\.tmp"}) {
        EXPECT_EQ(Read(gone), "(none)") << gone;
    }
    for (const char* kept : {"a\\3.tmp.html", "a\\tmp", "a\\b\\4.tmp", "5.tmp"}) {
        EXPECT_EQ(Read(kept), "x") << kept;
    }
    EXPECT_TRUE(files.FolderExists(In("a\\folder.tmp")));
    files.DeleteBySuffix(In("nowhere"), ".tmp");
}

TEST_P(FilesContract, ListsSubfoldersSorted) {
    for (const char* folder : {"b", "a", "a\\inner", "C"}) {
        ASSERT_TRUE(files.CreateFolder(In(folder)));
    }
    ASSERT_TRUE(files.WriteFile(In("file"), {}));
    EXPECT_EQ(files.Subfolders(subject.folder), (std::vector<std::string>{"C", "a", "b"}));
    EXPECT_EQ(files.Subfolders(In("a\\inner")), std::vector<std::string>());
}

TEST_P(FilesContract, KnowsWhatLiesInside) {
    ASSERT_TRUE(files.CreateFolder(In("a")));
    const struct {
        const char *path, *folder;
        bool inside;
    } cases[] = {
        {"a", "a", true},          {"a\\x\\y", "a", true},       {"a\\..\\b", "a", false},
        {"ab", "a", false},        {"b\\..\\a\\c", "a\\", true}, {"a\\x", "a\\x\\y", false},
        {"n\\x\\y", "n\\x", true}, {"n\\xy", "n\\x", false},     {"A\\x", "a", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(files.IsInside(In(c.path), In(c.folder)), c.inside) << c.path << " " << c.folder;
    }
    EXPECT_TRUE(files.IsInside(In("a"), "z:\\"));
    EXPECT_FALSE(files.IsInside("", In("a")));
    EXPECT_FALSE(files.IsInside(In("a"), ""));
}

}  // namespace contracts
