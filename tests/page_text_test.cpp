// The visible text of pages. The expected texts were taken from a browser.

#include <gtest/gtest.h>

#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "page_text/inner_text.h"
#include "page_text/system_encodings.h"

namespace {

using namespace std::string_view_literals;

std::string TextOf(std::string_view page) {
    return page_text::InnerTextOfMarkup(page);
}

using Row = std::pair<std::string_view, std::string_view>;  // a page and its text

void ExpectTexts(std::initializer_list<Row> rows) {
    for (const auto& [page, text] : rows)
        EXPECT_EQ(TextOf(page), page_text::ToLocalEncoding(std::string(text))) << "page: " << page;
}

std::string Repeat(std::string_view part, std::size_t times) {
    std::string whole;
    for (std::size_t i = 0; i < times; ++i)
        whole += part;
    return whole;
}

/// The parts of a list that "|" separates.
std::vector<std::string> Parts(const std::string& list) {
    std::vector<std::string> parts;
    std::istringstream rest(list);
    for (std::string part; std::getline(rest, part, '|');)
        parts.push_back(part);
    return parts;
}

TEST(InnerText, BlocksAndBreaks) {
    ExpectTexts(
        {{"<div>a</div><div><br></div><div>b</div>", "a\n\n\nb"},
         {"a </br> b<br style=display:none>c</div>d", "a\nbcd"},
         {"<p>a<center>b</p>c", "a\n\nb\n\nc"},
         {"<h1>a</h2>b<span style=\"color:red; Display : block\">c</span>d", "a\nb\nc\nd"}});
}

TEST(InnerText, WhiteSpace) {
    ExpectTexts({{"<p>\r\n\r\n\n a \r\n\r\n\n</p> b", "a\n\nb"},
                 {"a &nbsp; b&nbsp;&nbsp;c", "a \u00A0 b\u00A0\u00A0c"},
                 {"a<pre>\n\nx\r\n y\r\n</pre>b", "a\n\nx\n y\n\nb"},
                 {"a <input> b<input type=hidden> c <button> x </button> d", "a  b c x d"}});
}

TEST(InnerText, Tables) {
    ExpectTexts(
        {{"a <table>\n<tr>\n<td> 1 </td> <td> 2 </td> </tr> </table> b", "a\n1\t2\nb"},
         {"a<table><caption>cap</caption><thead><tr><th>1<th>2</thead><tbody><tr><td>3<td>4<tfoot>"
          "<tr><td>5</table>b",
          "a\ncap\n1\t2\n3\t4\n5\nb"},
         {"a<table><tr><td></td><td></td></tr><tr></tr><tr><td></td></tr></table>b",
          "a\n\t\n\n\nb"},
         {"<div><table><tr><td>a<table></tr><tr><td>b</div>c</table>d<td>e</table>", "a\nbc\nd\te"},
         {"<table><tr><td>1</table><table><td>2<td>3<table><td>4</table></table>5",
          "1\n2\t3\n4\n5"},
         {"<table><tr><td>1</tr><table><tr><td>2</table><tr><td>3<td>4", "1\n2\n34"},
         {"<td>a<table><tbody hidden><tr><td>x<tbody><tr><td>b", "a\nb"}});
}

TEST(InnerText, QuirksMode) {
    const auto expect_ending = [](std::initializer_list<std::string_view> starts,
                                  std::string_view ending) {
        for (const std::string_view start : starts) {
            const std::string text = TextOf(std::string(start) + "<p>a<table><tr><td>b</table>c");
            EXPECT_TRUE(text.ends_with(ending)) << start << ": " << text;
        }
    };
    // A table does not end the paragraph around it.
    expect_ending({"", "x<!doctype html>", "</b><!DOCTYPE html>", "<!doctype>", "<!doctype svg>",
                   "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">",
                   "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 3.2 Final//EN\">",
                   "<!DOCTYPE HTML PUBLIC '-//W3C//DTD HTML 4.0 Transitional//EN' 'loose.dtd'>",
                   "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Frameset//EN\">",
                   "<!doctype html public \"-//w3c//dtd html 4.01 transitional//en\">"},
                  "a\nb\nc");
    expect_ending({"<!DOCTYPE html>", "\r\n <!-- x --><?xml version='1.0'?><!x><!doctypehtml>",
                   "<!DOCTYPE html SYSTEM 'about:legacy-compat'>",
                   "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0//EN\">",
                   "<!DOCTYPE HTML PUBLIC\n'-//W3C//DTD HTML 4.01 Transitional//EN'\n'loose.dtd'>",
                   "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\">"},
                  "a\n\nb\nc");
}

TEST(InnerText, HiddenContent) {
    ExpectTexts(
        {{"<head><title>t</title>x</head>y", "xy"},
         {"a<script>x<p></scripts>y</SCRIPT ><style>y</style><noscript><p>z</noscript>b", "ab"},
         {"a<!-- x -- > --><? y ><!z></3></>b<!-- c", "ab"},
         {"a<!-->b<!--->c", "abc"},
         {"a<b type=hidden>b</b>", "ab"},
         {"a<!p>b", "ab"},
         {"a<textarea>x<b></textarea><iframe>y</iframe><canvas>z</canvas><video>v</video>b", "ab"},
         {"a<div hidden>x<div></div>y</div>b<span hidden=false>x<span></span>y</span>c", "abc"},
         {"a<p style = \"color:red; DISPLAY : NONE !important\">x", "a"},
         {"a<details>x<summary>s</summary>y</details>b<details open>z</details>", "a\ns\nb\nz"}});
}

TEST(InnerText, SpecialElements) {
    ExpectTexts(
        {{"<p>a<select> <option> x  z <option>y</select>b", "a\nx z\ny\nb"},
         {"a<xmp>x<b>\n </xmp>b", "a\nx<b>\n \nb"},
         {"a<svg> <text>x</text><title>t</title><g><text> q <tspan>r</tspan></text></g></svg>b",
          "a\nx\nq r\nb"}});
}

TEST(InnerText, BrokenMarkup) {
    ExpectTexts({{"a < b <3", "a < b <3"},
                 {"a<", "a<"},
                 {"a\0b"sv, "ab"},
                 {"a<b title='>'>b", "ab"},
                 // A saved page, whose scripts have become text.
                 {"<head>< !-- script src=x></script><title>T</title></head><body>a",
                  "< !-- script src=x>a"}});
}

TEST(InnerText, CharacterReferences) {
    ExpectTexts({{"&lt;b&amp;c&copy2024&notit;&notin;&hearts;&apos;",
                  "<b&c\u00A92024\u00ACit;\u2209\u2665'"},
                 {"&#128;&#x41;&#65 &unknown; &amp", "\u20ACAA &unknown; &"},
                 {"&#xD800;&#x110000;&#99999999999999999999;&#0;&#;&#x;&;& x",
                  "\uFFFD\uFFFD\uFFFD\uFFFD&#;&#x;&;& x"}});
}

TEST(InnerText, Encodings) {
    ExpectTexts(
        {{"<meta charset=windows-1251><p>\xcf\xf0\xe8\xe2\xe5\xf2", "Привет"},
         {"<meta http-equiv=\"Content-Type\" content=\"text/html; charset=KOI8-R; "
          "x\"><p>\xf0\xd2\xc9",
          "При"},
         {"<meta charset=Shift_JIS>\x93\xfa\x96{ \x83\\<b>\xb1 \x87\x40", "日本 ソｱ ①"},
         {"<meta charset=x-euc-jp>\xc6\xfc\xcb\xdc", "日本"},
         {"<meta charset=iso-2022-jp>\x1b$B\x46\x7c<K\x1b(B x", "日舎 x"},
         {"<meta charset=gb2312>\x81\x81\xff\xd6", "亖\uFFFD\uFFFD"},
         {"<meta charset=iso-8859-1>\x93q\x94 \xc3", "“q” Ã"},
         {"<meta charset=windows-1251//IGNORE>caf\xe9", "café"},
         {"<meta charset=unicode>caf\xc3\xa9", "café"},
         {"<meta charset=UTF8>caf\xe9 \xc3\xa9 \xe2\x82 x \xe0\x80 \xed\xa0 \xf0\x9f\x98\x80",
          "caf\uFFFD é \uFFFD x \uFFFD\uFFFD \uFFFD\uFFFD \U0001F600"},
         {"<meta charset=utf-8>\xc1\xbf \xc2\x80 \xdf\xc0 \xe0\x9f\xbf \xe0\xa0\x80 \xed\x9f\xbf",
          "\uFFFD\uFFFD \u0080 \uFFFD\uFFFD \uFFFD\uFFFD\uFFFD \u0800 \uD7FF"},
         {"<meta charset=utf-8>\xf0\x8f\xbf\xbf \xf0\x90\x80\x80 \xf4\x8f\xbf\xbf \xf4\x90\x80\x80 "
          "\xf5",
          "\uFFFD\uFFFD\uFFFD\uFFFD \U00010000 \U0010FFFF \uFFFD\uFFFD\uFFFD\uFFFD \uFFFD"},
         {"caf\xe9 \x93q\x94 \x81\xa0x", "café “q” \u0081\u00A0x"},
         {"<meta charset=windows-1258>a", "a"},  // a combining accent might still follow
         {"<script charset=koi8-r></script>\xe9", "é"},
         {"\xfe\xff\0<\0p\0>\0\xe9"sv, "é"},
         {"\xff\xfe<\0p\0>\0x\0y"sv, "x"},  // half of a character at the end
         {"\xff\xfe\x7f\0\x80\0\xff\x07\0\x08\xff\xff\0\xd8\0\xdc\0\xd8x\0"sv,
          "\x7f\u0080\u07FF\u0800\uFFFF\U00010000\uFFFDx"},
         {"\xef\xbb\xbf<meta charset=koi8-r>caf\xc3\xa9", "café"},
         {"\xff\xfe<\0p\0>\0\xe9\0=\xd8\0\xde"
          "b\0"sv,
          "é\U0001F600b"}});
    EXPECT_EQ(TextOf("<meta charset=gbk>" + Repeat("\xd6\xd0,", 50000)), Repeat("中,", 50000));
}

TEST(InnerText, FindsADeclarationOnlyNearTheStartOfThePage) {
    constexpr std::size_t kReach = 4096;
    const std::string meta = "<meta charset=iso-8859-15>";
    for (const bool reached : {true, false}) {
        const std::string before = Repeat(" ", kReach - meta.size() + (reached ? 0 : 1));
        EXPECT_EQ(TextOf(before + meta + "\xa4"), TextOf(reached ? "&euro;" : "&curren;"));
    }
}

TEST(InnerText, LargePagesLetEventsRun) {
    int yields = 0;
    page_text::InnerTextOfMarkup(Repeat("<p>a", 500'000), [&yields] { ++yields; });
    EXPECT_GE(yields, 5);
}

TEST(InnerText, PlainTextFile) {
    EXPECT_EQ(page_text::InnerTextOfPlainText("\xef\xbb\xbf<b>  &amp;\r\n\r\n\nc\rd"),
              "<b>  &amp;\n\n\nc\nd");
}

TEST(InnerText, DeepNesting) {
    for (const std::string& tag : Parts("<div>|<b hidden></b><i>|<table><tr><td>|<ul><li>|<svg>")) {
        const std::string deep = Repeat(tag, 100000);
        EXPECT_TRUE(TextOf(deep + "</x><p>inside").ends_with("inside")) << tag;
    }
    const std::string page = "<p>a" + Repeat("<div hidden>", 5000) + "x" + Repeat("</div>", 5000) +
                             "<table><tr><td>c<td>d</table>e";
    EXPECT_EQ(TextOf(page), "a\n\nc\td\ne");
}

TEST(InnerText, LongPagesTakeLinearTime) {
    // With each of these, a reader that starts over or searches ahead in vain takes hours.
    constexpr std::size_t kSize = 2'000'000;
    for (const std::string& part : Parts(
             "<|</|<!|<!--|--|<a |<a b='|&|&#|&amp|&notit|<script>|<script><!--|<script></script"
             "|<textarea>|<p>|</p>|<div></b>|<b hidden>|<table>|<table><tr><td>|<tr>x|<li>|<option>"
             "|\r| |\xff|<meta>")) {
        const std::string page = "<table><tr><td><p>" + Repeat(part, kSize / part.size());
        EXPECT_LE(TextOf(page).size(), 3 * page.size()) << part;
    }
}

}  // namespace
