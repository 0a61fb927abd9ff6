#include "text/text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "text/character_map.h"
#include "text/consumable_text.h"
#include "text/numbers.h"
#include "text/replacements.h"

namespace {

using namespace std::string_literals;

/// A text of these characters.
std::string RandomText(std::mt19937& random, const std::string& letters, std::size_t size) {
    std::string s(size, ' ');
    for (char& c : s)
        c = letters[random() % letters.size()];
    return s;
}

TEST(TextTest, InStrCountsFromOneAndZeroMeansAbsent) {
    EXPECT_EQ(text::InStr("abcabc", "abc", 0), 1u);
    EXPECT_EQ(text::InStr("abcabc", "abc", 2), 4u);
    EXPECT_EQ(text::InStr("abcabc", "c", 7), 0u);
    EXPECT_EQ(text::InStr("abcabc", "ca", 99), 0u);
    EXPECT_EQ(text::InStr("abc", "abcd", 1), 0u);
    EXPECT_EQ(text::InStr("abc", "", 1), 0u);
}

TEST(TextTest, CutsStayInsideTheTextAndKeepBytesBeyondAscii) {
    EXPECT_EQ(text::Mid("abcdef", 3), "cdef");
    EXPECT_EQ(text::Mid("abcdef", 0, 2), "ab");
    EXPECT_EQ(text::Mid("abcdef", 7), "");
    EXPECT_EQ(text::Trim("   "), "");
    EXPECT_EQ(text::Trim("\ta\r\n "), "\ta\r\n");
    EXPECT_EQ(text::LowerCase("AZ[@`\xC3\x89\xC4"), "az[@`\xC3\x89\xC4");
    EXPECT_EQ(text::UpperCase("az{@`\xC3\xA9\xE4"), "AZ{@`\xC3\xA9\xE4");
}

TEST(TextTest, ReplaceEqualsAPlainLoopOnRandomText) {
    std::mt19937 random(20240501);
    const std::string dense("ab\0", 3), sparse = dense + std::string(97, '\0');
    for (int round = 0; round < 20000; ++round) {
        // Every other text has few matches.
        std::string subject = RandomText(random, round % 2 == 0 ? sparse : dense, random() % 200);
        const std::string pattern = RandomText(random, dense, 1 + random() % 4);
        const std::string replacement = RandomText(random, dense, random() % 7);
        std::string expected = subject;
        for (std::size_t at = 0; (at = expected.find(pattern, at)) != std::string::npos;) {
            expected.replace(at, pattern.size(), replacement);
            at += replacement.size();
        }
        // Growing works differently with and without room in the buffer.
        if (round % 3 == 0) subject.reserve(2000);
        text::ReplaceAllIn(subject, pattern, replacement);
        ASSERT_EQ(subject, expected) << "round " << round;
    }
    EXPECT_EQ(text::ReplaceAll("abc", "", "x"), "abc");

    std::string tight(100000, '\n');
    text::ReplaceAllIn(tight, "\n", "\r\n");
    EXPECT_LT(tight.capacity(), 200100u) << "no more memory than needed";
}

TEST(CharacterMapTest, RefusesWhatWouldBecomeTooLong) {
    text::CharacterMap map;
    EXPECT_TRUE(map.Add('a', "bbbb"));
    EXPECT_FALSE(map.Add('b', "cc")) << "'a' would become too long";
    EXPECT_EQ(map.AppliedTo("ab"), "bbbbb");
}

TEST(ReplacementsTest, EqualSuccessiveOnesOnRandomText) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 4000; ++round) {
        // Patterns of two letters overlap and create each other; in few texts every rule finds a
        // match.
        std::vector<text::Replacements::Rule> rules;
        for (std::size_t i = random() % 12; i > 0; --i) {
            const std::size_t size = random() % 3 == 0 ? 1 + random() % 4 : 5 + random() % 3;
            rules.push_back({RandomText(random, size == 1 ? "abc\n" : "ab", size),
                             RandomText(random, "abc\r", random() % 7)});
        }
        const std::string letters[] = {"ab", "abc\n\r", "abcdefghijklmnopqrstuvwxyz"};
        std::string subject = RandomText(random, letters[round % 3], random() % 400);
        std::string expected = subject;
        for (const auto& [pattern, replacement] : rules) {
            expected = text::ReplaceAll(expected, pattern, replacement);
        }
        const text::Replacements replacements(rules);
        ASSERT_EQ(replacements.AppliedTo(subject).value_or(subject), expected) << "round " << round;
        replacements.ApplyTo(subject);
        ASSERT_EQ(subject, expected) << "round " << round;
    }
    // So full of parts of the pattern that the search gives up.
    const text::Replacements at_end(std::vector<text::Replacements::Rule>{{"=====x", "y"}});
    EXPECT_EQ(at_end.AppliedTo(std::string(5000, '=') + "x"), std::string(4995, '=') + "y");
    const std::vector<text::Replacements::Rule> absent = {{"absent", ""}};
    EXPECT_EQ(text::Replacements(absent).AppliedTo("text"), std::nullopt);
}

TEST(ConsumableTextTest, ConsumesAtTheFrontAndGrowsAtTheEnd) {
    text::ConsumableText page("0123456789");
    page.Consume(4);
    page.Append("ab");
    EXPECT_EQ(page.View(), "456789ab");
    page.Edit() += "!";
    EXPECT_EQ(page.View(), "456789ab!");
    page.Consume(100);
    EXPECT_TRUE(page.Empty());
    page.Assign(std::string(100000, 'x'));
    page.Consume(1);
    page.Assign("short");
    EXPECT_EQ(page.View(), "short");
    EXPECT_LT(page.Edit().capacity(), 1000u) << "the old text's memory is released";
}

TEST(NumbersTest, ReadsLeadingAndWholeNumbers) {
    const struct {
        std::string subject;
        double leading;
        bool whole;
    } cases[] = {{" 12 ", 12, true},  {"-.5x", -.5, false}, {"+3.", 3, true}, {"1e+", 1, false},
                 {"2E-1", 0.2, true}, {".", 0, false},      {"", 0, false},   {"inf", 0, false},
                 {"0x10", 0, false},  {"1,000", 1, false},  {"+-1", 0, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(text::LeadingNumber(c.subject), c.leading) << c.subject;
        EXPECT_EQ(text::WholeNumber(c.subject), c.whole ? std::optional(c.leading) : std::nullopt);
    }
    const std::string zeros(400, '0');
    for (const auto& huge : {"0.01e+999"s, "9e99999999999999999999"s, "1" + zeros + "e-5"}) {
        EXPECT_EQ(text::WholeNumber("-" + huge), -std::numeric_limits<double>::infinity());
    }
    for (const auto& tiny : {"9e-999"s, "9e-99999999999999999999"s, "0." + zeros + "1e5"}) {
        EXPECT_EQ(text::WholeNumber(tiny), 0);
    }
}

TEST(NumbersTest, RoundsHalvesToEvenAndKeepsTheWidth) {
    constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(text::RoundHalfEven(0.5), 0);
    EXPECT_EQ(text::RoundHalfEven(-1.5), -2);
    EXPECT_EQ(text::RoundHalfEven(2147483647.4), kLargest);
    EXPECT_EQ(text::RoundHalfEven(2147483647.5), std::nullopt);
    EXPECT_EQ(text::RoundHalfEven(-2147483649.0), std::nullopt);
    EXPECT_EQ(text::RoundHalfEven(std::numeric_limits<double>::quiet_NaN()), std::nullopt);

    std::int32_t total = kLargest - 5;
    EXPECT_FALSE(text::AddWithinWidth(total, 6));
    EXPECT_TRUE(text::AddWithinWidth(total, 5));
    EXPECT_EQ(total, kLargest);
}

}  // namespace
