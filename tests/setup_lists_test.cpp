#include <gtest/gtest.h>

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
    const struct {
        std::string bytes;
        Lines lines;
    } cases[] = {
        {"", {}},
        {" a \r\n\r\n   \r\n\n.b", {" a ", ".b"}},
        {"a\rb\r\r\n", {"a\rb\r"}},
        {std::string("a\0b\r\n\0\n", 7), {std::string("a\0b", 3), std::string("\0", 1)}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SplitListFile(c.bytes), c.lines);
    }
}

TEST(FileTypes, TheDefaultListIsKeptByteForByte) {
    fakes::FakeHost host;
    EXPECT_FALSE(FileTypesFileExists());
    EXPECT_EQ(LoadFileTypes(), "");
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
    EXPECT_EQ(ReadFileTypes(), (Lines{"  .GIF ", ".b"}));
    EXPECT_EQ(LoadFileTypes(), ":.gif::.b:");
    WriteFileTypes(ReadFileTypes());
    EXPECT_EQ(host.files.At(kTypesFile), ".GIF\r\n.b\r\n");
}

TEST(Filters, LoadsAtMostAHundredOrNone) {
    fakes::FakeHost host;
    const struct {
        std::string bytes;
        Lines filters;
    } cases[] = {
        {"ads\r\n\r\n  Track \r\n", {"ads", "Track"}},
        {JoinListFile(Numbered(100)) + " \r\n\n", Numbered(100)},
        {JoinListFile(Numbered(101)), {}},
    };
    for (const auto& c : cases) {
        KeywordFilters[100] = "old";
        host.files.Have(kFiltersFile, c.bytes);
        LoadKeywordFilters();
        Lines expected = c.filters;
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
    const Lines list = {"BANNER", " Ads "};
    for (const char* known : {"banner", " Banner  ", "ADS"}) {
        EXPECT_TRUE(FilterExists(known, list)) << known;
    }
    for (const char* unknown : {"bann", "", "ban ner"}) {
        EXPECT_FALSE(FilterExists(unknown, list)) << unknown;
    }
}

TEST(Settings, AreReadWithAFallback) {
    fakes::FakeHost host;
    EXPECT_EQ(StoredFolder(), "C:\\Websites\\");
    PutSetting("Timeout", "");
    PutSetting("InDir", "x");
    EXPECT_EQ(ReadSetting("Timeout", "15"), "");
    EXPECT_EQ(StoredFolder(), "x");
}

TEST(Settings, AFolderIsNormalised) {
    const struct {
        std::string typed, folder;
    } cases[] = {
        {"D:/a/b?", "D:\\a\\b_\\"}, {"x**y\\", "xy\\"}, {"", "\\"}, {"  ", "  \\"},
        {"C:\\\\", "C:\\\\"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NormalizeFolder(c.typed), c.folder) << c.typed;
    }
}

TEST(Settings, TheTargetFolderIsMadeWithItsParents) {
    fakes::FakeHost host;
    SetTargetFolder("c:\\a\\b\\c\\");
    EXPECT_EQ(crawl::TargetFolder, "c:\\a\\b\\c\\");
    EXPECT_TRUE(host.files.FolderExists("c:\\a\\b\\c"));
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

    host.files.Have("c:\\cd");
    host.files.read_only = {"c:\\cd"};
    for (const char* refused : {"c:\\cd", "c:\\missing\\", "q:\\", "c:\\fine\\f.txt\\"}) {
        path = refused;
        EXPECT_FALSE(TestFolderWritable(path)) << refused;
    }
}

}  // namespace
