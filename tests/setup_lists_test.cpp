#include <gtest/gtest.h>

#include <map>

#include "setup/file_types.h"
#include "setup/keyword_filters.h"
#include "setup/list_file.h"
#include "setup/settings.h"
#include "tests/fakes/fake_host.h"

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
    const std::string with_nul("a\0b", 3);
    EXPECT_EQ(SplitListFile(with_nul + "\n"), Lines{with_nul});
}

TEST(FileTypes, TheDefaultListIsKeptByteForByte) {
    fakes::FakeHost host;
    EXPECT_FALSE(FileTypesFileExists());
    MakeFileTypesFolder();
    WriteFileTypes(DefaultFileTypes());
    EXPECT_TRUE(FileTypesFileExists());
    EXPECT_EQ(host.files.At(kTypesFile).size(), 74u);
    EXPECT_EQ(LoadFileTypes(),
              ":.htm::.html::.php::.asp::.txt::.gif::.jpg::.jpeg::.png::.pdf::.zip::.css:");
}

TEST(FileTypes, BlanksStayInTheListAndGoInTheSetAndTheFile) {
    fakes::FakeHost host;
    host.files.Have(kTypesFile, "\r\n  .GIF \r\n   \r\n.b");
    EXPECT_EQ(LoadFileTypes(), ":.gif::.b:");
    WriteFileTypes(ReadFileTypes());
    EXPECT_EQ(host.files.At(kTypesFile), ".GIF\r\n.b\r\n");
}

TEST(Filters, LoadsAtMostAHundredOrNone) {
    fakes::FakeHost host;
    const std::map<std::string, Lines> cases = {
        {"ads\r\n\r\n  Track \r\n", {"ads", "Track"}},
        {JoinListFile(Numbered(100)) + " \r\n\n", Numbered(100)},
        {JoinListFile(Numbered(101)), {}},
    };
    for (auto [bytes, expected] : cases) {
        KeywordFilters[100] = "old";
        host.files.Have(kFiltersFile, bytes);
        LoadKeywordFilters();
        expected.resize(100);
        EXPECT_EQ(Filters(), expected);
    }
}

TEST(Filters, StoresWhatTheNextStartLoads) {
    fakes::FakeHost host;
    Lines list = Numbered(102);
    list[1] = "   ";
    StoreKeywordFilters(list);
    const Lines stored = Filters();
    EXPECT_EQ(stored[1], "word3");
    EXPECT_EQ(stored.back(), "word101");
    ClearKeywordFilters();
    LoadKeywordFilters();
    EXPECT_EQ(Filters(), stored);
    StoreKeywordFilters({});
    EXPECT_EQ(host.files.At(kFiltersFile), "");
    EXPECT_EQ(Filters(), Lines(100));
}

TEST(Filters, ExistWhateverTheirCaseAndBlanks) {
    EXPECT_TRUE(FilterExists(" Banner  ", {"BANNER"}));
    EXPECT_TRUE(FilterExists("ads", {"x", " Ads "}));
    EXPECT_FALSE(FilterExists("bann", {"BANNER"}));
}

TEST(Settings, AreReadWithAFallback) {
    fakes::FakeHost host;
    EXPECT_EQ(StoredFolder(), "C:\\Websites\\");
    PutSetting("InDir", "");
    EXPECT_EQ(StoredFolder(), "");
}

TEST(Settings, AFolderIsNormalised) {
    EXPECT_EQ(NormalizeFolder("D:/a/b?*"), "D:\\a\\b_\\");
    EXPECT_EQ(NormalizeFolder(""), "\\");
    EXPECT_EQ(NormalizeFolder("  "), "  \\");
    EXPECT_EQ(NormalizeFolder("C:\\\\"), "C:\\\\");
}

TEST(Settings, TheTargetFolderIsMadeWithItsParents) {
    fakes::FakeHost host;
    SetTargetFolder("c:\\a\\b\\");
    EXPECT_EQ(crawl::TargetFolder, "c:\\a\\b\\");
    EXPECT_TRUE(host.files.FolderExists("c:\\a\\b"));
}

TEST(Settings, AFolderIsWritableWhenAProbeComesAndGoes) {
    fakes::FakeHost host;
    host.files.Have("c:\\fine");
    std::string probe;
    host.files.on_write = [&probe](const std::string& path) { probe = path; };
    std::string path = "c:/fine";
    EXPECT_TRUE(TestFolderWritable(path));
    EXPECT_EQ(path, "c:\\fine\\");
    EXPECT_EQ(probe, "c:\\fine\\test23893.txt");
    EXPECT_TRUE(host.files.files.empty());
    host.files.read_only = {"c:\\fine"};
    EXPECT_FALSE(TestFolderWritable(path));
}

}  // namespace
