#include "extractor/addresses.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "text/text.h"

namespace {

using namespace bas_Extractor;

struct Case {
    std::string in, out;
};
using Table = std::vector<Case>;

/// For the routines that leave their argument alone.
void ExpectMaps(std::string (*routine)(const std::string&), const Table& table) {
    for (const Case& c : table) {
        EXPECT_EQ(routine(c.in), c.out) << "of \"" << c.in << '"';
    }
}

/// For those that also store the result back.
void ExpectStores(std::string (*routine)(std::string&), const Table& table) {
    for (const Case& c : table) {
        std::string s = c.in;
        EXPECT_EQ(routine(s), c.out) << "of \"" << c.in << '"';
        EXPECT_EQ(s, c.out) << "stored for \"" << c.in << '"';
    }
}

TEST(AddressesTest, SmallHelpers) {
    ExpectMaps(ReverseText, {{"abc", "cba"}, {"", ""}, {" a", "a "}});
    ExpectMaps(LowerTrim, {{"  A b ", "a b"}, {"   ", ""}, {"\tA", "\ta"}});
    ExpectMaps(LastChar, {{"abc", "c"}, {"abc ", " "}, {"   ", ""}, {"", ""}, {" /", "/"}});
    ExpectMaps(GetExtension, {{"a/b.html", ".html"},
                              {"a.php?x=1", ".php?x=1"},
                              {"site.com/dir/file", ".com/dir/file"},
                              {"file", "file"},
                              {"a.", "."},
                              {"", ""}});
    for (const char* yes : {"a/", "a\\", "/"})
        EXPECT_TRUE(EndsWithSlash(yes)) << yes;
    for (const char* no : {"a", "", "  ", "a/ "})
        EXPECT_FALSE(EndsWithSlash(no)) << no;
}

TEST(AddressesTest, SchemeAndPathPart) {
    ExpectStores(StripHttp, {{" HTTP://Site.com\\a\\b.html", "Site.com/a/b.html"},
                             {"http://http://site.com", "http://site.com"},
                             {"http:\\\\site.com\\x", "site.com/x"},
                             {"a/http:\\\\b http:\\c", "a/b http:/c"},
                             {"http://", ""},
                             {"http:/", "http:/"},
                             {" www.site.com ", "www.site.com"},
                             {"", ""}});
    ExpectMaps(UrlToPathPart, {{"http://www.site.com/dir/www.x.html", "site.com\\dir\\x.html"},
                               {" Http://www. site.com/ ", "site.com\\"},
                               {"site.com/a b/c", "site.com\\a b\\c"},
                               {"http://http:/site.com/b.html", "http:\\site.com\\b.html"},
                               {"", ""}});
    ExpectMaps(CollapseSlashes, {{"http://site.com//a///b", "http://site.com/a//b"},
                                 {"a//b//c//d", "a//b//c/d"},
                                 {"http://  x//y ", "http://x/y"},
                                 {"//", "//"},
                                 {"", ""}});
}

TEST(AddressesTest, CutsStandBeforeTheFirstDelimiter) {
    ExpectMaps(CutLinkAtDelimiter, {{"page.html'>Home", "page.html"},
                                    {"a.html;jsessionid=1", "a.html"},
                                    {"a#b'c", "a"},
                                    {"a}b", "a"},
                                    {"a b", "a"},
                                    {"a>b", "a"},
                                    {"a?b=1&c/d\\e\"f", "a?b=1&c/d\\e\"f"},
                                    {"'x", ""},
                                    {"", ""}});
    ExpectMaps(CutHostAtDelimiter, {{"site.com/dir/", "site.com"},
                                    {"site.com\\dir", "site.com"},
                                    {"site.com?x", "site.com"},
                                    {"site.com#x", "site.com"},
                                    {"site.com x", "site.com"},
                                    {"a;b:80", "a;b:80"},
                                    {"/x", ""}});
}

TEST(AddressesTest, DotDot) {
    ExpectStores(CutDotDotOnce, {{"a/../b", "a/b"},
                                 {"a\\..\\..\\b", "a/../b"},
                                 {"a\\b", "a/b"},
                                 {"a/..b", "a/..b"},
                                 {"/../", "/"}});
    ExpectStores(ResolveDotDot, {{"site.com/a/b/../c.html", "site.com/a/c.html"},
                                 {"site.com/a/b/../../c.html", "site.com/c.html"},
                                 {"site.com\\a\\..\\c.html", "site.com/c.html"},
                                 // Every other occurrence of the segment goes too.
                                 {"site.com/b/x/b/../y", "site.com/x/y"},
                                 {"site.com/bar/b/../y", "site.comar/y"},
                                 // No segment before it: only the "../" goes.
                                 {"site.com/../x", "site.com/x"},
                                 {"/../x", "/x"},
                                 {"/../../../x", "/x"},
                                 {"a/b/..", "a/b/.."},
                                 // The segment "/" takes every slash along.
                                 {"a//../b/c", "a..bc"},
                                 // The segment "/." takes the ".." apart.
                                 {"a/./../b", "a./b"},
                                 {"a/.../../b", "a/b"},
                                 {"", ""}});
}

/// The walk over segments, literally, with which the short way must agree.
std::string ResolveBySegments(std::string s) {
    s = text::ReplaceAll(s, "\\", "/");
    while (text::Contains(s, "/../")) {
        std::string current, previous;
        bool started = false;
        for (const char c : s) {
            if (c == '/') {
                if (started) {
                    if (current == "/..") break;
                    previous = current;
                    current.clear();
                }
                started = true;
            }
            if (started) current += c;
        }
        if (!previous.empty()) s = text::ReplaceAll(s, previous, "");
        CutDotDotOnce(s);
    }
    return s;
}

TEST(AddressesTest, ResolvingAgreesWithTheWalkOverSegmentsAndAlwaysEnds) {
    std::mt19937 random(7);
    const char* const pieces[] = {"/", "..", "/../", "a", "b", "/a", "/b/", ".", "\\", "site.com"};
    for (int round = 0; round < 20000; ++round) {
        std::string s;
        for (auto left = random() % 14; left > 0; --left) {
            s += pieces[random() % std::size(pieces)];
        }
        const std::string expected = ResolveBySegments(s);
        std::string resolved = s;
        ASSERT_EQ(ResolveDotDot(resolved), expected) << s;
        ASSERT_FALSE(text::Contains(resolved, "/../")) << s;
    }

    // As long as a link can get, and a base much longer than any.
    const auto start = std::chrono::steady_clock::now();
    std::string climbing = "site.com", flat = "site.com";
    for (int i = 0; i < 2000; ++i) {
        climbing.insert(8, "/d" + std::to_string(i));
        climbing += "/..";
        flat += "/../x";
    }
    climbing += "/end.html";
    EXPECT_FALSE(text::Contains(ResolveDotDot(climbing), "/../"));
    EXPECT_FALSE(text::Contains(ResolveDotDot(flat), "/../"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(AddressesTest, ThousandsAreGrouped) {
    const struct {
        std::string in, out, stored;
    } cases[] = {{"1234567", "1,234,567", "1234567"},
                 {"123456", "123,456", "123456"},
                 {" 1234 ", "1,234", "1234"},
                 {"123", "123", "123"},
                 {"", "", ""},
                 {" ABCD ", "a,bcd", "abcd"}};
    for (const auto& c : cases) {
        std::string s = c.in;
        EXPECT_EQ(FormatThousands(s), c.out);
        EXPECT_EQ(s, c.stored);
    }
}

}  // namespace
