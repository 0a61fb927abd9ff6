#pragma once

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/files.h"

/// The contract of `platform::Files`. The test of an implementation instantiates the suite with a
/// function that creates the implementation and an empty folder to work in.
namespace contracts {

struct FilesUnderTest {
    std::unique_ptr<platform::Files> files;
    std::string folder;           ///< as path text, without a final "\"
    std::shared_ptr<void> owned;  ///< destroyed after the test
    bool tells_case_apart = true;
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

TEST_P(FilesContract, CreatesOneFolderAndNoParents) {
    EXPECT_FALSE(files.CreateFolder(In("a\\b")));
    EXPECT_TRUE(files.CreateFolder(In("a\\")));
    EXPECT_FALSE(files.CreateFolder(In("a")));
    EXPECT_TRUE(files.WriteFile(In("file"), {}));
    EXPECT_FALSE(files.CreateFolder(In("file")));
    EXPECT_TRUE(files.FolderExists(In("a")));
    EXPECT_FALSE(files.FolderExists(In("file")));
}

TEST_P(FilesContract, ReadsBackWhatWasWritten) {
    const std::string bytes("\0\r\n\xff", 4);
    EXPECT_TRUE(files.WriteFile(In("f"), {"longer than the next"}));
    EXPECT_TRUE(files.WriteFile(In("f"), {bytes, "x"}));
    EXPECT_EQ(files.FileLength(In("f")), 5);
    EXPECT_TRUE(files.AppendFile(In("f"), {"y", "z"}));
    EXPECT_TRUE(files.AppendFile(In("new"), {"y", "z"}));
    EXPECT_EQ(Read("f"), bytes + "xyz");
    EXPECT_EQ(Read("new"), "yz");
    EXPECT_EQ(files.ReadShortFile(In("f"), 7), bytes + "xyz");
    EXPECT_EQ(files.ReadShortFile(In("f"), 6), std::nullopt);
    EXPECT_FALSE(files.WriteNewFile(In("new"), {"x"}));
    EXPECT_TRUE(files.WriteNewFile(In("newer"), {"y", "z"}));
    EXPECT_EQ(Read("new") + Read("newer"), "yzyz");
    EXPECT_TRUE(files.DeleteFile(In("f")));
    EXPECT_EQ(files.FileLength(In("f")), std::nullopt);
}

TEST_P(FilesContract, DoesNotTreatFoldersAsFiles) {
    ASSERT_TRUE(files.CreateFolder(In("a")));
    ASSERT_TRUE(files.WriteFile(In("a\\kept"), {"kept"}));
    EXPECT_EQ(files.FileLength(In("a")), 0);
    EXPECT_EQ(files.ReadFile(In("a")), std::nullopt);
    EXPECT_FALSE(files.DeleteFile(In("a")));
    for (const char* path : {"a", "nowhere\\f", "a\\kept\\f"}) {
        EXPECT_FALSE(files.WriteFile(In(path), {"x"})) << path;
        EXPECT_FALSE(files.AppendFile(In(path), {"x"})) << path;
    }
#ifdef _WIN32  // which says it in other words
    EXPECT_FALSE(files.WriteFile(In("nowhere\\f"), {"x"}).why_not.empty());
#else
    EXPECT_EQ(files.WriteFile(In("nowhere\\f"), {"x"}).why_not,
              std::generic_category().message(ENOENT));
#endif
    EXPECT_EQ(Read("a\\kept"), "kept");
}

TEST_P(FilesContract, RefusesInvalidNames) {
    for (const std::string& path : {In(std::string(256, 'n')), In(std::string("a\0b", 3)),
                                    std::string(), std::string("q:\\a")}) {
        EXPECT_FALSE(files.WriteFile(path, {"x"})) << path;
        EXPECT_FALSE(files.AppendFile(path, {"x"})) << path;
        EXPECT_FALSE(files.CreateFolder(path)) << path;
        EXPECT_FALSE(files.DeleteFile(path)) << path;
        EXPECT_FALSE(files.FolderExists(path)) << path;
        EXPECT_EQ(files.FileLength(path), std::nullopt) << path;
        EXPECT_EQ(files.ReadFile(path), std::nullopt) << path;
    }
}

TEST_P(FilesContract, ResolvesDotsAsTextAndComparesNamesLikeTheSystem) {
    EXPECT_TRUE(files.WriteFile(In("nowhere\\..\\.\\\\a"), {"small"}));
    EXPECT_TRUE(files.WriteFile(In("A"), {"large"}));
    EXPECT_EQ(Read("a\\..\\a"), subject.tells_case_apart ? "small" : "large");
    EXPECT_EQ(files.IsInside(In("A\\x"), In("a")), !subject.tells_case_apart);
}

TEST_P(FilesContract, DeletesBySuffixInOneFolderAndListsSubfoldersSorted) {
    for (const char* folder : {"b.tmp", "a", "a\\b", "C"}) {
        ASSERT_TRUE(files.CreateFolder(In(folder)));
    }
    for (const char* name : {".tmp", "2.tmp.html", "a\\3.tmp"}) {
        ASSERT_TRUE(files.WriteFile(In(name), {"x"}));
    }
    files.DeleteBySuffix(subject.folder + "\\", ".tmp");
    EXPECT_EQ(Read(".tmp"), "(none)");
    EXPECT_EQ(Read("2.tmp.html"), "x");
    EXPECT_EQ(Read("a\\3.tmp"), "x");
    EXPECT_EQ(files.Subfolders(subject.folder), (std::vector<std::string>{"C", "a", "b.tmp"}));
}

TEST_P(FilesContract, ReadsAFolderEntryByEntry) {
    using Kind = platform::FolderReader::Kind;
    ASSERT_TRUE(files.CreateFolder(In("a")));
    std::map<std::string, Kind> expected{{"b", Kind::Folder}};
    for (const auto& [name, kind] : expected)
        ASSERT_TRUE(files.CreateFolder(In("a\\" + name)));
    for (int i = 0; i < 300; ++i) {
        const std::string name = "file" + std::to_string(i);
        expected[name] = Kind::File;
        ASSERT_TRUE(files.WriteFile(In("a\\" + name), {"x"}));
    }
    std::map<std::string, Kind> found;
    const auto reader = files.OpenFolder(In("a\\"));
    ASSERT_NE(reader, nullptr);
    while (const auto entry = reader->Next()) {
        EXPECT_TRUE(found.emplace(entry->name, entry->kind).second) << entry->name;
        if (entry->kind == Kind::File) files.DeleteFile(In("a\\" + entry->name));
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(reader->Next(), std::nullopt);
    using std::string_literals::operator""s;
    for (const std::string& none : {"nowhere"s, "a\\b\\c"s, "a\0b"s})
        EXPECT_EQ(files.OpenFolder(In(none)), nullptr);
}

TEST_P(FilesContract, ReadsPartsOfAGrowingFile) {
    ASSERT_TRUE(files.WriteFile(In("f"), {"0123456789"}));
    ASSERT_TRUE(files.CreateFolder(In("a")));
    const auto reader = files.OpenFile(In("f"));
    ASSERT_NE(reader, nullptr);
    const auto read = [&](std::uint64_t offset) {
        char part[4];
        return std::string(part, reader->ReadAt(offset, part, sizeof part));
    };
    EXPECT_EQ(read(8), "89");
    EXPECT_EQ(read(3), "3456");
    EXPECT_EQ(read(10), "");
    EXPECT_EQ(read(1'000'000'000'000), "");
    ASSERT_TRUE(files.AppendFile(In("f"), {"ab"}));
    EXPECT_EQ(read(10), "ab");
    for (const char* none : {"a", "nowhere", "f\\g"})
        EXPECT_EQ(files.OpenFile(In(none)), nullptr) << none;
}

TEST_P(FilesContract, KnowsWhichPathsAreInsideAFolder) {
    ASSERT_TRUE(files.CreateFolder(In("a")));
    ASSERT_TRUE(files.WriteFile(In("a\\file"), {}));
    for (const char* inside : {"a", "a\\x\\y", "b\\..\\a\\c", "a\\file\\x"}) {
        EXPECT_TRUE(files.IsInside(In(inside), In("a\\"))) << inside;
    }
    for (const char* outside : {"a\\..\\b", "ab", ""}) {
        EXPECT_FALSE(files.IsInside(In(outside), In("a"))) << outside;
    }
    EXPECT_FALSE(files.IsInside("", In("a")));
    EXPECT_FALSE(files.IsInside(In("a"), ""));
}

TEST_P(FilesContract, ClaimsAFolderOnlyOnceAtATime) {
    for (const char* folder : {"a", "b"}) {
        ASSERT_TRUE(files.CreateFolder(In(folder)));
    }
    auto claim = files.ClaimFolder(In("a\\"));
    ASSERT_NE(claim, nullptr);
    EXPECT_EQ(files.ClaimFolder(In("b\\..\\a")), nullptr);
    EXPECT_NE(files.ClaimFolder(In("b")), nullptr);
    EXPECT_EQ(files.Subfolders(In("a")), std::vector<std::string>());
    files.DeleteBySuffix(In("a"), "");
    EXPECT_EQ(files.ClaimFolder(In("a")), nullptr) << "the claim is not a file in the folder";
    claim.reset();
    EXPECT_NE(files.ClaimFolder(In("a")), nullptr);
}

}  // namespace contracts
