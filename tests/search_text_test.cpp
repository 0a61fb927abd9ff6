#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "search/case_folding.h"
#include "search/query.h"
#include "search/record_reader.h"
#include "search/snippet.h"

namespace search {

namespace {

using Strings = std::vector<std::string>;

TEST(Query, HasWordsAndPhrases) {
    const std::tuple<const char*, Strings> cases[] = {
        {"", {}},
        {"  \"\" ", {}},
        {" two  words ", {"two", "words"}},
        {"a a", {"a"}},
        {"say \"hello  there\" now", {"say", "hello  there", "now"}},
        {"\"not closed ", {"not closed "}},
        {"in\"side\"", {"in", "side"}},
        {"*.?[\\", {"*.?[\\"}}};
    for (const auto& [query, terms] : cases)
        EXPECT_EQ(TermsOf(query), terms) << query;
}

std::vector<Term> Terms(const Strings& words, const Alphabet& alphabet) {
    std::vector<Term> terms;
    for (const std::string& word : words)
        terms.emplace_back(word, alphabet);
    return terms;
}

/// The pages that the reader finds when the extract comes in blocks of `size` bytes.
std::vector<RecordedPage> Read(const std::string& extract, const Strings& words,
                               const Alphabet& alphabet, std::size_t size) {
    const std::vector<Term> terms = Terms(words, alphabet);
    RecordReader reader(terms, alphabet);
    std::vector<RecordedPage> pages;
    for (std::size_t at = 0; at < extract.size(); at += size) {
        reader.Read(std::string_view(extract).substr(at, size), pages);
    }
    return pages;
}

/// "path:matches@first" for each page.
std::string Told(const std::vector<RecordedPage>& pages) {
    std::string told;
    for (const RecordedPage& page : pages) {
        told += page.path + ":" + std::to_string(page.matches);
        if (page.matches > 0) told += "@" + std::to_string(page.first_match);
        told += " ";
    }
    return told;
}

TEST(RecordReader, FindsTermsInAnyCase) {
    const Alphabet utf8;
    const std::tuple<std::string, Strings, std::uint32_t> cases[] = {
        {"Needle, needles and NEEDLE", {"needle"}, 3},
        {"needle", {"NEEDLE"}, 1},
        {"aaaa", {"aa"}, 2},
        {"foobar foo", {"foo", "foobar"}, 2},
        {"foo", {"foo", "bar"}, 0},
        {"one two", {"one two"}, 1},
        {"one  two", {"one two"}, 0},
        {"\xC3\x89t\xC3\xA9 \xC3\xA9T\xC3\x89", {"\xC3\xA9t\xC3\xA9"}, 2},
        {"\xD0\x9F\xD0\xA0\xD0\x98", {"\xD0\xBF\xD1\x80\xD0\xB8"}, 1},
        {"\xE2\x84\xAA k K", {"k"}, 3},  // the Kelvin sign
        {"abc\xE2\x84\xAAq", {"abckq"}, 1},
        {"ma\xC5\xBF\x73 mass", {"MASS"}, 2},        // the long s
        {"\xE1\xBA\x9E \xC3\x9F", {"\xC3\x9F"}, 2},  // both sharp s
        {"stra\xC3\x9F\x65", {"strasse"}, 0},        // one character never matches two
        {"\xC4\xB0", {"i"}, 0},                      // the dotted capital i is a different letter
        {"a\xFFz \xC3 \xA9", {"\xFF"}, 1},           // bytes outside any character
        {"\xC3\xA9", {"\xA9"}, 0},                   // a part of a character does not match
        {std::string("a\0b", 3), {std::string("A\0B", 3)}, 1},
        {"50% *.?[x]", {"*.?[X]", "50%"}, 2}};
    for (const auto& [text, words, matches] : cases) {
        const auto pages = Read("! p\r\n" + text + "\r\n", words, utf8, 1000);
        ASSERT_EQ(pages.size(), 1U) << text;
        EXPECT_EQ(pages[0].matches, matches) << text << " for " << words[0];
    }
}

TEST(RecordReader, FindsTermsAtEveryPlaceOfALongText) {
    const Alphabet utf8;
    std::string text;
    for (int i = 0; i < 2000; ++i)
        text += "ze";
    for (const std::string before : {"", "y"}) {
        const auto pages = Read("! p\n" + before + text + "\n", {"ZE"}, utf8, 1'000'000);
        ASSERT_EQ(pages.size(), 1U);
        EXPECT_EQ(pages[0].matches, 2000U);
    }
}

TEST(RecordReader, FoldsTheLettersOfACodePage) {
    std::array<unsigned char, 256> folded;
    for (std::size_t i = 0; i < folded.size(); ++i)
        folded[i] = static_cast<unsigned char>(i);
    folded['A'] = 'a';
    folded[0xC4] = 0xE4;
    const Alphabet alphabet(folded);
    EXPECT_EQ(Told(Read("! p\n\xC4\x61 \xE4\x41 \xC3\xA4\n", {"\xE4\x61"}, alphabet, 9)), "p:2@4 ");
}

TEST(RecordReader, ReadsRecordsAndSkipsTheRest) {
    const Alphabet utf8;
    const std::string long_line(100'000, 'y');
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"two records", "! a\r\nx\r\n! b\r\nx x\r\n", "a:1@5 b:2@13 "},
        {"lone line feeds", "! a\nx\n! b\ny\n", "a:1@4 b:0 "},
        {"a record without text", "! a\r\nx\r\n! a\r\n\r\n", "a:1@5 "},
        {"other lines", "x\r\n\r\n! a\r\nx\r\nx\r\n! b\r\nx\r\n", "a:1@10 b:1@21 "},
        {"a text that looks like a path", "! a\r\n! x\r\n! b\r\nx\r\n", "a:1@7 b:1@15 "},
        {"a text without an end", "! a\r\nx\r\n! b\r\nx", "a:1@5 "},
        {"a path without an end", "! a\r\nx\r\n! b", "a:1@5 "},
        {"no record", "!x\r\n!\r\n", ""},
        {"an endless path", "! " + long_line + "\r\n! a\r\nx\r\n", "a:1@100009 "},
        {"a long text", "! a\r\nx" + long_line + "x\r\n", "a:2@5 "},
        {"an empty path", "! \r\nx\r\n", ":1@4 "}};
    for (const auto& [what, extract, told] : cases) {
        for (const std::size_t size : {1, 7, 1'000'000}) {
            EXPECT_EQ(Told(Read(extract, {"x"}, utf8, size)), told) << what << " by " << size;
        }
    }
}

/// The matches that the reader must find, counted plainly: every character is folded and every
/// place tried.
std::uint32_t PlainCount(const std::u32string& text, const std::vector<std::u32string>& words) {
    for (const auto& word : words) {
        if (text.find(word) == text.npos) return 0;
    }
    std::uint32_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t longest = 0;
        for (const auto& word : words) {
            if (text.compare(at, word.size(), word) == 0) longest = std::max(longest, word.size());
        }
        if (longest > 0) ++count;
        at += std::max<std::size_t>(longest, 1);
    }
    return count;
}

TEST(RecordReader, EqualsAPlainCountInRandomTexts) {
    const Alphabet utf8;
    const Strings spelled = {"a",        "A",        "b",   " ", "k", "K", "\xE2\x84\xAA",
                             "\xC3\xA9", "\xC3\x89", "\xFF"};
    const std::u32string folded = U"aab kkk\u00E9\u00E9\x1100FF";
    ASSERT_EQ(folded.size(), spelled.size());
    std::mt19937 random(7);
    const auto pick = [&](std::size_t most, std::string& bytes, std::u32string& characters) {
        for (std::size_t left = random() % most + 1; left > 0; --left) {
            const std::size_t i = random() % spelled.size();
            bytes += spelled[i];
            characters += folded[i];
        }
    };
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        std::u32string characters;
        pick(60, text, characters);
        Strings words(random() % 3 + 1);
        std::vector<std::u32string> folded_words(words.size());
        for (std::size_t i = 0; i < words.size(); ++i)
            pick(3, words[i], folded_words[i]);
        const auto pages = Read("! p\n" + text + "\n", words, utf8, random() % 40 + 1);
        ASSERT_EQ(pages.size(), 1U);
        EXPECT_EQ(pages[0].matches, PlainCount(characters, folded_words))
            << text << " in round " << round;
    }
}

TEST(Snippet, IsCutAtWords) {
    const Alphabet utf8;
    const auto around = [&](const std::string& text, const std::string& word) {
        const std::size_t at = text.find(word);
        return SnippetAround(text, {at, at + word.size()}, utf8);
    };
    EXPECT_EQ(around("! p\r\nshort text\r\n! q\r\n", "text"), "short text");
    EXPECT_EQ(around("a\tb\x01"
                     "c",
                     "b"),
              "a b c");

    std::string words;
    for (int i = 100; i < 300; ++i)
        words += std::to_string(i) + " ";
    const std::string snippet = around(words, "150");
    EXPECT_TRUE(snippet.starts_with("138 ")) << snippet;
    EXPECT_TRUE(snippet.ends_with(" 177")) << snippet;
    EXPECT_LE(snippet.size(), kSnippetCharacters);

    std::string umlauts;
    for (int i = 0; i < 400; ++i)
        umlauts += "\xC3\xBC";
    EXPECT_EQ(around(umlauts + "x" + umlauts, "x").size(), 2 * kSnippetCharacters - 1);
}

}  // namespace

}  // namespace search
