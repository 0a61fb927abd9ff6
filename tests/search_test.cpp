#include "search/search.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/memory_files.h"

namespace {

class SearchTest : public testing::Test {
  protected:
    void Have(const std::string& host, const std::string& extract) {
        files.Have("c:\\copy\\_SearchData\\" + host + ".txt", extract);
    }

    /// "pages: path matches, ..." when the search is through.
    std::string Find(const std::string& query, std::size_t most = 100) {
        search::Search search(query, "c:\\copy\\", files);
        while (search.Step()) {
        }
        std::string found = std::to_string(search.PageCount()) + ":";
        for (const search::Hit& hit : search.Best(most)) {
            found += " " + hit.path + " " + std::to_string(hit.matches);
        }
        return found;
    }

    fakes::MemoryFiles files;
};

TEST_F(SearchTest, PutsThePageWithTheMostMatchesFirst) {
    Have("b.com", "! b.com\\2\r\nx\r\n! b.com\\1\r\nX x\r\n");
    Have("a.com", "! a.com\\z\r\nx\r\n! a.com\\none\r\ny\r\n");
    EXPECT_EQ(Find("x"), "3: b.com\\1 2 a.com\\z 1 b.com\\2 1");
    EXPECT_EQ(Find("x", 1), "3: b.com\\1 2");
    EXPECT_EQ(Find("x y"), "0:");
    EXPECT_EQ(Find(" "), "0:");
}

TEST_F(SearchTest, APageCountsAsItWasRecordedLast) {
    Have("a.com", "! 1\r\nx x x\r\n! 2\r\nx\r\n! 1\r\nx\r\n! 2\r\ny\r\n! 3\r\ny\r\n! 3\r\nx x\r\n");
    EXPECT_EQ(Find("x"), "2: 3 2 1 1");
}

TEST_F(SearchTest, KeepsTheBestOfMorePagesThanItHolds) {
    std::string extract;
    const std::size_t pages = 2 * search::kMostHits + 1;
    for (std::size_t i = 0; i < pages; ++i) {
        extract += "! " + std::to_string(i) + "\r\n" + (i % 1000 == 7 ? "x x" : "x") + "\r\n";
    }
    Have("a.com", extract);
    const std::string two_best = " 10007 2 1007 2";
    EXPECT_EQ(Find("x", 2), std::to_string(pages) + ":" + two_best);
}

TEST_F(SearchTest, ShowsTheWordsAroundTheFirstMatch) {
    Have("a.com", "! p\r\none two three\r\n! q\r\nthree\r\n");
    search::Search search("TWO three", "c:\\copy", files);
    while (search.Step()) {
    }
    const auto hits = search.Best(10);
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(search.SnippetOf(hits[0]), "one two three");
    files.files.clear();
    EXPECT_EQ(search.SnippetOf(hits[0]), "") << "the extract has gone";
}

TEST_F(SearchTest, SaysWhetherThereIsAnExtract) {
    EXPECT_FALSE(search::Search("x", "c:\\copy", files).HasExtract());
    files.Have("c:\\copy\\_SearchData");
    EXPECT_FALSE(search::Search("x", "c:\\copy", files).HasExtract());
    Have("a.com", "");
    EXPECT_TRUE(search::Search("x", "c:\\copy", files).HasExtract());
    EXPECT_FALSE(search::Search("x", "c:\\other", files).HasExtract());
}

}  // namespace
