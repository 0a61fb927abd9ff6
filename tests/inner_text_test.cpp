// The visible text of pages. What a page gives was read off a browser, row by row.

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/inner_text/html_inner_text.h"

namespace {

using platform::PageKind;
using namespace std::string_view_literals;

std::string TextOf(std::string_view page, PageKind kind = PageKind::Markup) {
    return platform::HtmlInnerText().InnerText(std::string(page), kind);
}

using Row = std::pair<std::string_view, std::string_view>;  // a page and its text

void ExpectTexts(std::initializer_list<Row> rows) {
    for (const auto& [page, text] : rows)
        EXPECT_EQ(TextOf(page), text) << "page: " << page;
}

std::string Repeat(std::string_view part, std::size_t times) {
    std::string whole;
    for (std::size_t i = 0; i < times; ++i)
        whole += part;
    return whole;
}

/// The parts of a list that has "|" between them.
std::vector<std::string> Parts(const std::string& list) {
    std::vector<std::string> parts;
    std::istringstream rest(list);
    for (std::string part; std::getline(rest, part, '|');)
        parts.push_back(part);
    return parts;
}

TEST(InnerText, BlocksAndBreaks) {
    ExpectTexts({
        {"<div>a</div><div><br></div><div>b</div>", "a\n\n\nb"},
        {"<br>a", "\na"},
        {"a </br> b", "a\nb"},
        {"a</p>b", "a\n\nb"},
        {"<h1>a<h2>b</h1>c</h2>d", "a\nb\ncd"},
        {"a<hr>b", "a\nb"},
        {"a<nobr>b<p>c</nobr>d", "ab\n\ncd"},
        {"<p>a<center>b</p>c", "a\n\nb\n\nc"},
        {"<div/>y</div>z", "y\nz"},
        {"<dl><dt>a<dd>b<dt>c<dd>d</dl>", "a\nb\nc\nd"},
        {"<ul><li>a<div><li>b</div></ul>c", "a\nb\nc"},
        {"<form>a<div></form>b</div>c", "a\nb\nc"},
    });
}

TEST(InnerText, WhiteSpace) {
    ExpectTexts({
        {"<p>\r\n\r\n\n a \r\n\r\n\n</p> b", "a\n\nb"},
        {"a &nbsp; b&nbsp;&nbsp;c", "a \u00A0 b\u00A0\u00A0c"},
        {"a\fb", "a\fb"},
        {"a<pre>\n\nx\n y\n</pre>b", "a\n\nx\n y\n\nb"},
        {"<pre>\r\n\r\n\nb</pre>", "\n\nb"},
        {"<div style=\"white-space:pre-wrap\">a  b\n c</div> d", "a  b\n c\nd"},
        {"<div style=\"white-space:pre-line\">a  b\n c</div> d", "a b\nc\nd"},
        {"a <input> b<input type=hidden> c", "a  b c"},
        {"a <span style=\"display:inline-block\"> x </span> b", "a x b"},
    });
}

TEST(InnerText, Tables) {
    ExpectTexts({
        {"a <table>\n<tr>\n<td> 1 </td> <td> 2 </td> </tr> </table> b", "a\n1\t2\nb"},
        {"a<table><caption>cap</caption><thead><tr><th>1<th>2</thead><tbody><tr><td>3<td>4<tfoot>"
         "<tr><td>5</table>b",
         "a\ncap\n1\t2\n3\t4\n5\nb"},
        {"a<table><tr><td><p>1</p></td><td>2</td></tr></table>b", "a\n\n1\n\n\t2\nb"},
        {"a<table><tr><td></td><td></td></tr><tr></tr><tr><td></td></tr></table>b", "a\n\t\n\n\nb"},
        {"<table><tr><td>a<table><tr><td>b</table><td>c</table>", "a\nb\n\tc"},
        {"<table><td>a<td>b<tbody><td>c</table>d", "a\tb\nc\nd"},
        {"<table><tr><table><tr><td>x</table>y", "x\ny"},
        {"<table><tr><td><ul><li>a</td><td>b</table>", "a\n\tb"},
        {"<tr><td>a<td>b", "ab"},
        {"a<table><tr><td hidden>h</td><td>1<td style=\"display:none\">2<td>3</table>b",
         "a\n1\t3\nb"},
        {"a<pre><table> <tr> <td>1</table></pre>b", "a\n1\nb"},
    });
}

TEST(InnerText, WhatIsNotShown) {
    ExpectTexts({
        {"<head><title>t</title>x</head>y", "xy"},
        {"a<script>x<p></script><style>y</style><noscript><p>z</noscript>b", "ab"},
        {"a<!-- x -- > --!><!--><!---><? y ><!z></3></>b<!-- c", "ab"},
        {"a<template><div>x</div></template><noframes>y</noframes><noembed>z</noembed>b", "ab"},
        {"a<textarea>x<b></textarea><iframe>y</iframe><canvas>z</canvas><video>v</video>b", "ab"},
        {"a<datalist><option>x</datalist><dialog>y</dialog><progress>z</progress>b", "ab"},
        {"a<div hidden>x</div><span hidden=false>y</span><p style=\"DISPLAY : NONE !important\">z",
         "a"},
        {"<div style=\"display:none;display:block\">a</div>b", "a\nb"},
        {"<body style=\"visibility:hidden\">a <b style=\"visibility:visible\">v</b> <p>b", "v"},
        {"a<details>x<summary>s</summary><summary>t</summary>y</details>b", "a\ns\nb"},
        {"a<details open><summary>s</summary>content</details>b", "a\ns\ncontent\nb"},
        {"<ruby>a<rp>(<rt>b<rp>)</ruby>c", "abc"},
        {"<html><head></head><frameset><frame></frameset>x", ""},
        {"<body><frameset><frame></frameset>x", "x"},
        // A body that is not displayed at all gives its whole text as it stands.
        {"<body hidden>a<script>var x;</script><p>b", "avar x;b"},
        {"<body style=\"display:none\">a <p>b", "a b"},
    });
}

TEST(InnerText, ElementsWithTheirOwnWays) {
    ExpectTexts({
        {"a<select> foo <option> x  z <option>y</select>b", "a\nx z\ny\nb"},
        {"<button>a<button>b</button>c", "abc"},
        {"a<xmp>x <b> &amp;</xmp>b", "a\nx <b> &amp;\nb"},
        {"a<plaintext>x<b>\n </plaintext>", "a\nx<b>\n </plaintext>"},
        {"a<img align=right>b", "a\nb"},
        {"a<span style=\"float:left\"> x </span>b", "a\nx\nb"},
        {"a<span style=\"position:absolute\"> x </span>b", "a\nx\nb"},
        {"a<div style=\"display:inline\">b</div>c", "abc"},
        {"a<svg>zz<text>x</text><title>t</title><g><text> q <tspan>r</tspan></text></g></svg>b",
         "a\nx\nq r\nb"},
        {"a<svg><style>b</style><foreignObject>fo</foreignObject></svg>b", "a\nfo\nb"},
        {"a<svg><p>x</p>y", "a\n\nx\n\ny"},
        {"a<svg><title/><style/></svg>b<svg><text><![CDATA[<c>]]></text></svg>d", "ab\n<c>\nd"},
        {"a<math><mrow><mi>sin</mi><mo>+</mo></mrow><mtext>hello</mtext></math>b",
         "a\nsin\n+\nhello\nb"},
    });
}

TEST(InnerText, BrokenMarkup) {
    ExpectTexts({
        {"a < b <3", "a < b <3"},
        {"a <b c=\"> d", "a"},
        {"<a =b>z", "z"},
        {"<p title='>'>z", "z"},
        {"a</", "a</"},
        {"a<", "a<"},
        {"<script>a<!--<script>b</script>c--></script>d", "d"},
        {"<script>a<!--b</script>c", "c"},
        {"a\0b"sv, "ab"},
        // A page as it is saved: its scripts have become text.
        {"<head>< !-- script src=x></script><title>T</title></head><body>a",
         "< !-- script src=x>a"},
    });
}

TEST(InnerText, CharacterReferences) {
    ExpectTexts({
        {"&lt;b&amp;c&copy2024&notit;&notin;&hearts;&apos;",
         "<b&c\u00A92024\u00ACit;\u2209\u2665'"},
        {"&#128;&#x41;&#65 &unknown; &amp", "\u20ACAA &unknown; &"},
        {"&#xD800;&#x110000;&#99999999999999999999;&#0;&#;&#x;&;& x",
         "\uFFFD\uFFFD\uFFFD\uFFFD&#;&#x;&;& x"},
        {"a&#13;b&#10;c&#9;d", "a b c d"},
        {"a&shy;b&zwj;c&#8203;d", "a\u00ADb\u200Dc\u200Bd"},
    });
}

#ifndef _WIN32  // The texts are in the local encoding, which is UTF-8 elsewhere.
TEST(InnerText, Encodings) {
    ExpectTexts({
        {"<meta charset=windows-1251><p>\xcf\xf0\xe8\xe2\xe5\xf2", "Привет"},
        {"<meta http-equiv=\"Content-Type\" content=\"text/html; charset=koi8-r\"><p>\xf0\xd2\xc9",
         "При"},
        {"<META HTTP-EQUIV=content-type CONTENT='text/html;CHARSET = \"iso-8859-2\"'>\xb1\xe6\xea",
         "ąćę"},
        {"<meta charset=shift_jis>\x93\xfa\x96{ \x83\\<b>\xb1", "日本 ソｱ"},
        {"<meta charset=iso-2022-jp>\x1b$BF|K\\\x1b(B<b>&lt;", "日本<"},
        {"<meta charset=gb2312>\xd6\xd0\xb9\xfa", "中国"},
        {"<meta charset=nonsense>caf\xe9", "café"},
        {"<meta charset=../utf-8//IGNORE>caf\xe9", "café"},
        {"<meta charset=utf-8>caf\xe9 \xc3\xa9 \xe2\x82 x \xf0\x9f\x98\x80",
         "caf\uFFFD é \uFFFD x \U0001F600"},
        {"<meta charset=utf-16>caf\xc3\xa9", "café"},
        {"caf\xe9 \x93q\x94 \x81", "café “q” \u0081"},
        {"\xef\xbb\xbf<meta charset=koi8-r>caf\xc3\xa9", "café"},
        {"\xff\xfe<\0p\0>\0\xe9\0=\xd8\0\xde"
         "b\0"sv,
         "é\U0001F600b"},
        {"\xfe\xff\0<\0p\0>\0\xe9\xd8=\xde\0\0b"sv, "é\U0001F600b"},
    });
}

TEST(InnerText, DeclarationCountsLateOnlyInTheHead) {
    const std::string filler = "<!--" + Repeat("x", 2000) + "-->";
    const std::string declaration = "<meta charset=iso-8859-2>";
    EXPECT_EQ(TextOf("<head>" + filler + declaration + "\xb1"), "ą");
    EXPECT_EQ(TextOf("<body>" + filler + "<p>" + declaration + "\xb1"), "±");
}

TEST(InnerText, CharactersAreWholeAcrossPieces) {
    for (const std::string shift : {"", "-", "--"}) {
        EXPECT_EQ(TextOf(shift + Repeat("日", 50000)), shift + Repeat("日", 50000));
        EXPECT_EQ(TextOf("<meta charset=gbk>" + shift + Repeat("\xd6\xd0,", 50000)),
                  shift + Repeat("中,", 50000));
    }
}
#endif

TEST(InnerText, PlainTextFile) {
    EXPECT_EQ(TextOf("a <b>  &amp;\r\n\r\n\nc", PageKind::PlainText), "a <b>  &amp;\n\n\nc");
    EXPECT_EQ(TextOf("\xef\xbb\xbfx", PageKind::PlainText), "x");
}

constexpr std::string_view kRichPage =
    "\xef\xbb\xbf<!DOCTYPE html><html><head><meta charset='utf-8'><title>t&amp;</title>"
    "<script>a<!--<script>b</script>--></script></head><body style='white-space:pre'><p hidden>x"
    "<table><tr><td>1<td><ul><li>2<select><option>o</select></table><svg><text><![CDATA[c]]>"
    "</text></svg><math><mi>m</mi></math><pre>\r\nk\r</pre><xmp>&</xmp><details><summary>s"
    "</details><!-- c --!>&eacute;&#x20AC;&notit;\xe2\x82\xac<textarea>z</textarea><plaintext>q";

TEST(InnerText, TakesAPageCutAnywhere) {
    // A page that stops in the middle still ends, and its text never holds more than the page.
    for (std::size_t length = 0; length <= kRichPage.size(); ++length) {
        EXPECT_LE(TextOf(kRichPage.substr(0, length)).size(), 2 * length);
        EXPECT_LE(TextOf(kRichPage.substr(length)).size(), 2 * kRichPage.size());
    }
    EXPECT_TRUE(TextOf(kRichPage).ends_with("\nq"));
}

TEST(InnerText, TakesAnyBytes) {
    const auto parts = Parts(
        "<|</|>|/|=|\"|'|&|#|;|<!--|-->|\r\n|\xff|\xe2\x82|table|<td>|</table>|<tr>|<p>|</"
        "p>|<svg>|<li>"
        "|<b hidden>|</b>|<script>|</script|<pre>| style=|display:none|text");
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::string page = round % 3 == 0 ? "<meta charset=euc-jp>" : "";
        for (int part = 0; part < 60; ++part) {
            page += parts[random() % parts.size()];
            if (random() % 4 == 0) page += static_cast<char>(random());
        }
        EXPECT_LE(TextOf(page).size(), 4 * page.size()) << page;
    }
}

TEST(InnerText, DeepNesting) {
    for (const std::string& tag : Parts("<div>|<b hidden></b><i>|<table><tr><td>|<ul><li>|<svg>")) {
        const std::string deep = Repeat(tag, 100000);
        EXPECT_TRUE(TextOf(deep + "</x><p>inside").ends_with("inside")) << tag;
    }
    // What was opened too deep is closed again before what lies around it.
    const std::string page = "<p>a" + Repeat("<div>", 5000) + "b" + Repeat("</div>", 5000) +
                             "<table><tr><td>c<td>d</table>e";
    EXPECT_EQ(TextOf(page), "a\n\nb\nc\td\ne");
}

TEST(InnerText, LongPagesTakeNoLongerThanTheirLength) {
    // Each of these makes a reader that starts over, or searches ahead in vain, take hours.
    constexpr std::size_t kSize = 2'000'000;
    for (const std::string& part : Parts(
             "<|</|<!|<!--|--|<a |<a b='|&|&#|&amp|&notit|<script>|<script><!--|<script></script"
             "|<textarea>|<p>|</p>|<div></b>|<b hidden>|<table>|<table><tr><td>|<tr>x|<li>|<option>"
             "|<svg><![CDATA[|\r| |\xff|<meta>")) {
        const std::string page = "<table><tr><td><p>" + Repeat(part, kSize / part.size());
        EXPECT_LE(TextOf(page).size(), 3 * page.size()) << part;
    }
}

}  // namespace
