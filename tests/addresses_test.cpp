#include "extractor/addresses.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace bas_Extractor;

struct Case {
    std::string in, out;
};
using Table = std::vector<Case>;

/// For routines that return the result, and for those that store it in their argument, too.
template <typename Argument>
void ExpectMaps(std::string (*routine)(Argument), const Table& table) {
    for (const Case& c : table) {
        std::string s = c.in;
        EXPECT_EQ(routine(s), c.out) << "of \"" << c.in << '"';
        EXPECT_EQ(s, std::is_const_v<std::remove_reference_t<Argument>> ? c.in : c.out);
    }
}

TEST(AddressesTest, TrimsCutsAndConverts) {
    ExpectMaps(LowerTrim, {{"  A b ", "a b"}, {"\tA", "\ta"}});
    ExpectMaps(LastChar, {{"abc ", " "}, {"   ", ""}, {"", ""}, {" /", "/"}});
    ExpectMaps(GetExtension, {{"site.com/dir/file", ".com/dir/file"}, {"file", "file"}});
    ExpectMaps(StripHttp, {{" HTTP://Site.com\\a\\b.html", "Site.com/a/b.html"},
                           {"http://http://site.com", "http://site.com"},
                           {"a/http:\\\\b http:\\c", "a/b http:/c"},
                           {"http:/", "http:/"},
                           {" www.site.com ", "www.site.com"}});
    ExpectMaps(UrlToPathPart, {{"http://www.site.com/dir/www.x.html", "site.com\\dir\\x.html"},
                               {" Http://www. site.com/ ", "site.com\\"},
                               {"http://http:/site.com/b.html", "http:\\site.com\\b.html"}});
    ExpectMaps(CollapseSlashes, {{"http://site.com//a///b", "http://site.com/a//b"},
                                 {"a//b//c//d", "a//b//c/d"},
                                 {"http://  x//y ", "http://x/y"}});
    for (const std::string delimiter : {"#", "'", ">", "}", " ", ";"}) {
        ExpectMaps(CutLinkAtDelimiter, {{"a/b?c=1&d\\e\"" + delimiter + "f#", "a/b?c=1&d\\e\""}});
    }
    EXPECT_TRUE(EndsWithSlash("a\\"));
    EXPECT_FALSE(EndsWithSlash("a/ "));
}

TEST(AddressesTest, ResolvesDotDot) {
    ExpectMaps(CutDotDotOnce,
               {{"a\\..\\..\\b", "a/../b"}, {"a\\b", "a/b"}, {"a/..b", "a/..b"}, {"/../", "/"}});
    ExpectMaps(ResolveDotDot, {{"site.com\\a/b/../../c.html", "site.com/c.html"},
                               // Every other occurrence of the segment is removed, too.
                               {"site.com/bar/b/../y", "site.comar/y"},
                               // Without a segment before it, only the "../" is removed.
                               {"site.com/../x", "site.com/x"},
                               {"/../../x", "/x"},
                               {"site.com/a/b/c/d/../../../../e", "site.com/e"},
                               {"a/b/..", "a/b/.."},
                               // Removing the segment "/" removes every slash.
                               {"a//../b/c", "a..bc"},
                               // Removing the segment "/." breaks the ".." apart.
                               {"a/./../b", "a./b"}});
}

}  // namespace
