#include <gtest/gtest.h>

#include <map>

#include "setup/file_types.h"
#include "setup/keyword_filters.h"
#include "setup/list_file.h"
#include "setup/shared_list.h"
#include "tests/fakes/fake_system.h"

using namespace bas_General;
using Lines = std::vector<std::string>;

namespace {

const std::string kTypesFile = "c:\\program\\temp\\filetypes.txt";
const std::string kFiltersFile = "c:\\program\\filters.txt";

Lines Numbered(int count) {
    Lines lines;
    for (int n = 1; n <= count; ++n) {
        lines.push_back("word" + std::to_string(n));
    }
    return lines;
}

Lines Filters() {
    return Lines(KeywordFilters.begin(), KeywordFilters.end());
}

TEST(ListFile, SplitsIntoNonBlankLines) {
    EXPECT_EQ(SplitListFile(""), Lines());
    EXPECT_EQ(SplitListFile(" a \r\n\r\n   \r\n\n.b"), (Lines{" a ", ".b"}));
    EXPECT_EQ(SplitListFile("a\rb\r\r\n"), Lines{"a\rb\r"});
}

TEST(SharedList, AppliesTheChangesOfOthersToAnEditedList) {
    const struct {
        const char *before, *now;
        Lines edited, merged;
    } cases[] = {{"a\r\nb\r\n", "a\r\nb\r\nc\r\n", {"a", "b", "mine"}, {"a", "b", "mine", "c"}},
                 {"a\r\nb\r\n", "b\r\n", {"b", "mine"}, {"b", "mine"}},
                 {"a\r\na\r\n", "a\r\n", {"a", "a", "mine"}, {"a", "mine"}},
                 {"a\r\n", "", {"a", "mine"}, {"mine"}},
                 {"", "a\r\na\r\n", {}, {"a", "a"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.now);
        fakes::FakeSystem system;
        SharedList list(kTypesFile);
        list.Know();
        EXPECT_EQ(list.WithOthersChanges(c.edited), std::nullopt) << "there is no file yet";
        system.files.Have(kTypesFile, c.before);
        list.Know();
        EXPECT_EQ(list.WithOthersChanges(c.edited), std::nullopt);
        system.files.Have(kTypesFile, c.now);
        EXPECT_EQ(list.WithOthersChanges(c.edited), c.merged);
        EXPECT_EQ(list.WithOthersChanges(c.merged), std::nullopt) << "once only";
    }
}

TEST(FileTypes, OfAnAddressStartsAtItsLastDot) {
    const std::pair<const char*, const char*> cases[] = {
        {"site.com/a.b/c.WAV", ".wav"}, {"site.com/x.az09", ".az09"}, {"site.com/dir/file", ""},
        {"site.com/a.php?x=1", ""},     {"site.com/a.", ""},          {"", ""},
        {"site.com/a.b_c", ""}};
    for (const auto& [address, type] : cases)
        EXPECT_EQ(FileTypeOf(address), type) << address;
}

TEST(FileTypes, AreAddedOnceAtTheEnd) {
    fakes::FakeSystem system;
    EXPECT_TRUE(AddFileTypes({".iso"}));
    EXPECT_EQ(ReadFileTypes().size(), DefaultFileTypes().size() + 1);
    system.files.Have(kTypesFile, ".htm\r\n .WAV \r\n");
    EXPECT_TRUE(AddFileTypes({".iso", ".wav"}));
    EXPECT_EQ(system.files.At(kTypesFile), ".htm\r\n.WAV\r\n.iso\r\n");
    system.files.disk_full = true;
    EXPECT_FALSE(AddFileTypes({".ogg"}));
}

TEST(FileTypes, BlanksStayInTheListButNotInTheSetOrTheFile) {
    fakes::FakeSystem system;
    system.files.Have(kTypesFile, "\r\n  .GIF \r\n   \r\n.b");
    EXPECT_EQ(LoadFileTypes(), ":.gif::.b:");
    WriteFileTypes(ReadFileTypes());
    EXPECT_EQ(system.files.At(kTypesFile), ".GIF\r\n.b\r\n");
    WriteFileTypes(DefaultFileTypes());
    EXPECT_EQ(LoadFileTypes(),
              ":.htm::.html::.php::.asp::.txt::.gif::.jpg::.jpeg::.png::.pdf::.zip::.css:");
}

TEST(FileTypes, AListIsCreatedIfMissingAndMayHoldNoValidType) {
    fakes::FakeSystem system;
    EXPECT_TRUE(MakeFirstFileTypesFile());
    EXPECT_TRUE(AnyFileTypeKnown());
    const std::pair<std::string, bool> cases[] = {{"", false},
                                                  {" \r\n.\r\nhtml\r\n", false},
                                                  {".tar.gz\n.a\1\n.\xE4", false},
                                                  {std::string(1000, '\0'), false},
                                                  {std::string(1'000'000, 'x'), false},
                                                  {"x\r\n .C++ ", true},
                                                  {".c\r\n", true}};
    for (const auto& [bytes, known] : cases) {
        system.files.Have(kTypesFile, bytes);
        EXPECT_EQ(AnyFileTypeKnown(), known) << bytes;
        EXPECT_FALSE(MakeFirstFileTypesFile());
        EXPECT_EQ(system.files.At(kTypesFile), bytes);
    }
}

TEST(Filters, LoadsAtMostAHundredOrNone) {
    fakes::FakeSystem system;
    const std::map<std::string, Lines> cases = {
        {"ads\r\n\r\n  Track \r\n", {"ads", "Track"}},
        {JoinListFile(Numbered(100)) + " \r\n\n", Numbered(100)},
        {JoinListFile(Numbered(101)), {}}};
    for (auto [bytes, expected] : cases) {
        KeywordFilters[100] = "old";
        system.files.Have(kFiltersFile, bytes);
        LoadKeywordFilters();
        expected.resize(100);
        EXPECT_EQ(Filters(), expected);
    }
}

TEST(Filters, StoresWhatTheNextStartLoads) {
    fakes::FakeSystem system;
    Lines list = Numbered(102);
    list[1] = "   ";
    StoreKeywordFilters(list);
    const Lines stored = Filters();
    EXPECT_EQ(stored[1], "word3");
    EXPECT_EQ(stored.back(), "word101");
    ClearKeywordFilters();
    LoadKeywordFilters();
    EXPECT_EQ(Filters(), stored);
    StoreKeywordFilters({"last"});
    Lines left(100);
    left[0] = "last";
    EXPECT_EQ(Filters(), left) << "a removed keyword no longer filters";
}

}  // namespace
