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

    /// "pages/matches: path matches, ..." when the search is done.
    std::string Find(const std::string& query, std::size_t most = 100) {
        search::Search search(query, search::ExtractsOf("c:\\copy\\", files), files);
        while (search.Step()) {
        }
        std::string found =
            std::to_string(search.PageCount()) + "/" + std::to_string(search.MatchCount()) + ":";
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
    EXPECT_EQ(Find("x"), "3/4: b.com\\1 2 a.com\\z 1 b.com\\2 1");
    EXPECT_EQ(Find("x", 1), "3/4: b.com\\1 2");
    EXPECT_EQ(Find("x y"), "0/0:");
    EXPECT_EQ(Find(" "), "0/0:");
}

TEST_F(SearchTest, CountsEachPageAsLastRecorded) {
    Have("a.com", "! 1\r\nx x x\r\n! 2\r\nx\r\n! 1\r\nx\r\n! 2\r\ny\r\n! 3\r\ny\r\n! 3\r\nx x\r\n");
    EXPECT_EQ(Find("x"), "2/3: 3 2 1 1");
    Have("a.com", "! 1\r\nx x\r\n! 1\r\n\r\n! 2\r\n\r\n");
    EXPECT_EQ(Find("x"), "1/2: 1 2") << "a retry that came to nothing has no text";
}

TEST_F(SearchTest, KeepsTheBestOfMorePagesThanItHolds) {
    std::string extract;
    const std::size_t pages = 2 * search::kMostHits + 1;
    for (std::size_t i = 0; i < pages; ++i) {
        extract += "! " + std::to_string(i) + "\r\n" + (i % 1000 == 7 ? "x x" : "x") + "\r\n";
    }
    Have("a.com", extract);
    const std::string two_best = " 10007 2 1007 2";
    EXPECT_EQ(Find("x", 2),
              std::to_string(pages) + "/" + std::to_string(pages + 20) + ":" + two_best);
}

TEST_F(SearchTest, ShowsTheWordsAroundTheFirstMatch) {
    Have("a.com", "! p\r\none (two-fold) three, thirty-TWO\r\n! q\r\nthree\r\n");
    search::Search search("TWO three", search::ExtractsOf("c:\\copy", files), files);
    while (search.Step()) {
    }
    const auto hits = search.Best(10);
    ASSERT_EQ(hits.size(), 1U);
    const std::string snippet = search.SnippetOf(hits[0]);
    EXPECT_EQ(snippet, "one (two-fold) three, thirty-TWO");
    std::string matches;
    for (const search::Span& match : search.MatchesIn(snippet))
        matches += snippet.substr(match.begin, match.end - match.begin) + " ";
    EXPECT_EQ(matches, "two three TWO ");
    EXPECT_EQ(search.FirstWordsIn(snippet), "two-fold");
    files.files.clear();
    EXPECT_EQ(search.SnippetOf(hits[0]), "") << "the extract was deleted";
    EXPECT_EQ(search.FirstWordsIn(""), "");
}

TEST_F(SearchTest, SaysWhyThereIsNothingToSearch) {
    files.Have("c:\\empty");
    files.Have("c:\\no_extract\\_SearchData\\notes.dat", "");
    files.Have("c:\\closed");
    files.Have("c:\\closed_inside\\_SearchData");
    files.Have("c:\\closed_extract\\_SearchData\\a.com.txt", "");
    files.Have("c:\\open\\_SearchData\\a.com.txt", "");
    files.Have("c:\\open\\_SearchData\\b.com.txt", "");
    files.unreadable = {"c:\\closed", "c:\\closed_inside\\_SearchData",
                        "c:\\closed_extract\\_SearchData\\a.com.txt",
                        "c:\\open\\_SearchData\\a.com.txt"};
    using State = search::Extracts::State;
    const std::pair<const char*, State> cases[] = {{"c:\\none", State::NoFolder},
                                                   {"", State::NoFolder},
                                                   {"c:\\empty", State::NoExtract},
                                                   {"c:\\no_extract", State::NoExtract},
                                                   {"c:\\closed", State::Unreadable},
                                                   {"c:\\closed_inside\\", State::Unreadable},
                                                   {"c:\\closed_extract", State::Unreadable},
                                                   {"c:\\open", State::Readable}};
    for (const auto& [folder, state] : cases) {
        EXPECT_EQ(search::ExtractsOf(folder, files).state, state) << folder;
        EXPECT_EQ(search::WhyNothing(state).empty(), state == State::Readable);
    }
}

}  // namespace
