#include "text/text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "text/consumable_text.h"
#include "text/numbers.h"

namespace {

using std::string_literals::operator""s;

TEST(TextTest, InStrCountsFromOneAndZeroMeansAbsent) {
    const struct {
        std::string subject, pattern;
        std::size_t from, position;
    } cases[] = {
        {"abcabc", "abc", 1, 1},
        {"abcabc", "abc", 2, 4},
        {"abcabc", "abc", 0, 1},
        {"abcabc", "c", 6, 6},
        {"abcabc", "c", 7, 0},
        {"abcabc", "bc", 99, 0},
        {"abcabc", "ABC", 1, 0},
        {"abc", "abcd", 1, 0},
        {"abc", "", 1, 0},
        {"", "a", 1, 0},
        {"", "ab", 1, 0},
        {"a\0b\0c"s, "\0c"s, 1, 4},
        {"\xC3\xA9x", "\xA9", 1, 2},
        {"aab", "ab", 1, 2},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(text::InStr(c.subject, c.pattern, c.from), c.position)
            << c.subject << " / " << c.pattern << " / " << c.from;
        EXPECT_EQ(text::Contains(c.subject, c.pattern), text::InStr(c.subject, c.pattern, 1) != 0);
    }
}

TEST(TextTest, MidAndLeftStayInside) {
    EXPECT_EQ(text::Mid("abcdef", 3), "cdef");
    EXPECT_EQ(text::Mid("abcdef", 3, 2), "cd");
    EXPECT_EQ(text::Mid("abcdef", 0, 2), "ab");
    EXPECT_EQ(text::Mid("abcdef", 6, 300), "f");
    EXPECT_EQ(text::Mid("abcdef", 7), "");
    EXPECT_EQ(text::Mid("abcdef", std::numeric_limits<std::size_t>::max()), "");
    EXPECT_EQ(text::Left("abc", 2), "ab");
    EXPECT_EQ(text::Left("abc", 9), "abc");
}

TEST(TextTest, TrimAndCaseTouchOnlyWhatTheySay) {
    EXPECT_EQ(text::Trim("  a b  "), "a b");
    EXPECT_EQ(text::Trim("   "), "");
    EXPECT_EQ(text::Trim("\ta\r\n "), "\ta\r\n");
    EXPECT_EQ(text::LowerCase("AZ[@`\xC3\x89\xC4"), "az[@`\xC3\x89\xC4");
    EXPECT_EQ(text::UpperCase("az{@`\xC3\xA9\xE4"), "AZ{@`\xC3\xA9\xE4");
}

TEST(TextTest, ReplaceIsOnePassFromTheLeft) {
    const struct {
        std::string subject, pattern, replacement, result;
    } cases[] = {
        {"a///b", "//", "/", "a//b"},
        {"aaa", "aa", "b", "ba"},
        {"aaaa", "aa", "aaa", "aaaaaa"},
        {"x\ny\n", "\n", "\r\n", "x\r\ny\r\n"},
        {"wwwww.w.", "www.", "", "www."},
        {"abc", "abc", "", ""},
        {"a.b.c", ".", "", "abc"},
        {"a\"b\"", "\"", "'", "a'b'"},
        {"abc", "", "x", "abc"},
        {"", "a", "bb", ""},
        {"\0a\0"s, "\0"s, "--", "--a--"},
        {"abab", "ab", "ab", "abab"},
        {"href = x", "href =", "href=", "href= x"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(text::ReplaceAll(c.subject, c.pattern, c.replacement), c.result) << c.subject;
    }
}

std::string NaiveReplace(const std::string& subject, const std::string& pattern,
                         const std::string& replacement) {
    std::string result;
    for (std::size_t i = 0; i < subject.size();) {
        if (subject.compare(i, pattern.size(), pattern) == 0) {
            result += replacement;
            i += pattern.size();
        } else {
            result += subject[i++];
        }
    }
    return result;
}

TEST(TextTest, ReplaceEqualsTheObviousLoopOnRandomText) {
    std::mt19937 random(20240501);
    const auto random_text = [&random](std::size_t longest, std::size_t shortest) {
        std::string s(shortest + random() % (longest - shortest + 1), ' ');
        for (char& c : s) {
            c = "ab\0"[random() % 3];
        }
        return s;
    };
    for (int round = 0; round < 20000; ++round) {
        const std::string pattern = random_text(4, 1), replacement = random_text(6, 0);
        std::string subject = random_text(60, 0);
        const std::string expected = NaiveReplace(subject, pattern, replacement);
        // Growing takes one way when the buffer has room and another when it has not.
        if (round % 2 == 0) subject.reserve(1000);
        text::ReplaceAllIn(subject, pattern, replacement);
        ASSERT_EQ(subject, expected) << "round " << round;
    }
}

TEST(TextTest, ReplaceStaysInItsBufferWhileThereIsRoom) {
    std::string subject(100, 'a');
    subject.reserve(300);
    const char* const buffer = subject.data();
    text::ReplaceAllIn(subject, "a", "bb");
    text::ReplaceAllIn(subject, "bb", "ccc");
    text::ReplaceAllIn(subject, "ccc", "d");
    EXPECT_EQ(subject, std::string(100, 'd'));
    EXPECT_EQ(subject.data(), buffer);

    std::string tight(100000, '\n');
    tight.shrink_to_fit();
    text::ReplaceAllIn(tight, "\n", "\r\n");
    EXPECT_EQ(tight.size(), 200000u);
    EXPECT_LT(tight.capacity(), 200100u) << "room for exactly the result";
}

TEST(TextTest, PassesAreLinearOnTextsMadeToBeBad) {
    const auto start = std::chrono::steady_clock::now();
    const std::string units[] = {"\"", " ", "href", " src ", "=", "\r\n", "; url="};
    for (const std::string& unit : units) {
        std::string subject;
        while (subject.size() < 400'000) {
            subject += unit;
        }
        for (const char* pattern : {" src = ", "href=", "\"", "; url=", "\n"}) {
            text::ReplaceAllIn(subject, pattern, "a href='http://");
            text::ReplaceAllIn(subject, "a href='http://", pattern);
        }
        EXPECT_EQ(subject.substr(0, unit.size()), unit);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(ConsumableTextTest, EatsFromTheFrontAndGrowsAtTheEnd) {
    text::ConsumableText page("0123456789");
    page.Consume(4);
    EXPECT_EQ(page.View(), "456789");
    page.Append("ab");
    EXPECT_EQ(page.View(), "456789ab");
    EXPECT_EQ(page.Size(), 8u);
    page.Edit() += "!";
    EXPECT_EQ(page.View(), "456789ab!");
    page.Consume(9);
    EXPECT_TRUE(page.Empty());
    page.Append("xy");
    page.Consume(1);
    EXPECT_EQ(page.View(), "y");
    page.Consume(100);
    EXPECT_EQ(page.View(), "");
    page.Append("new");
    page.Consume(1);
    page.Assign("fresh");
    EXPECT_EQ(page.View(), "fresh");
}

TEST(ConsumableTextTest, GivesTheMemoryOfAnOldTextBack) {
    text::ConsumableText page(std::string(100000, 'x'));
    page.Assign("short");
    EXPECT_LT(page.Edit().capacity(), 1000u);
    page.Assign(std::string(100000, 'x'));
    page.Clear();
    EXPECT_LT(page.Edit().capacity(), 1000u);
}

TEST(NumbersTest, LeadingAndWholeNumbers) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const std::string many_zeros(400, '0');
    const struct {
        std::string subject;
        double leading;
        bool whole;
    } cases[] = {
        {"12", 12, true},
        {" 12 ", 12, true},
        {"12 sec", 12, false},
        {"-.5x", -0.5, false},
        {"+3.", 3, true},
        {"1.5e2", 150, true},
        {"1e", 1, false},
        {"1e+", 1, false},
        {"2E-1", 0.2, true},
        {"007", 7, true},
        {".", 0, false},
        {"-", 0, false},
        {"", 0, false},
        {"   ", 0, false},
        {"inf", 0, false},
        {"nan", 0, false},
        {"0x10", 0, false},
        {"\t5", 0, false},
        {"1,000", 1, false},
        {"5\0"s, 5, false},
        {"--5", 0, false},
        {"9e999", kInfinity, true},
        {"-9e999", -kInfinity, true},
        {"9e-999", 0, true},
        {"9e99999999999999999999", kInfinity, true},
        {"1" + many_zeros, kInfinity, true},
        {"0." + many_zeros + "1", 0, true},
        {"0." + many_zeros + "1e5", 0, true},
        {"1" + many_zeros + "e-5", kInfinity, true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(text::LeadingNumber(c.subject), c.leading) << c.subject;
        const std::optional<double> whole = text::WholeNumber(c.subject);
        EXPECT_EQ(whole.has_value(), c.whole) << c.subject;
        if (whole) {
            EXPECT_EQ(*whole, c.leading) << c.subject;
        }
    }
}

TEST(NumbersTest, HalvesGoToTheEvenNeighbourAndWidthIsKept) {
    EXPECT_EQ(text::RoundHalfEven(0.5), 0);
    EXPECT_EQ(text::RoundHalfEven(1.5), 2);
    EXPECT_EQ(text::RoundHalfEven(2.5), 2);
    EXPECT_EQ(text::RoundHalfEven(-1.5), -2);
    EXPECT_EQ(text::RoundHalfEven(2147483647.4), 2147483647);
    EXPECT_EQ(text::RoundHalfEven(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(text::RoundHalfEven(2147483647.5), std::nullopt);
    EXPECT_EQ(text::RoundHalfEven(std::numeric_limits<double>::infinity()), std::nullopt);
    EXPECT_EQ(text::RoundHalfEven(std::numeric_limits<double>::quiet_NaN()), std::nullopt);

    std::int32_t total = std::numeric_limits<std::int32_t>::max() - 5;
    EXPECT_FALSE(text::AddWithinWidth(total, 6));
    EXPECT_TRUE(text::AddWithinWidth(total, 5));
    EXPECT_EQ(total, std::numeric_limits<std::int32_t>::max());
    std::int16_t attempts = std::numeric_limits<std::int16_t>::min();
    EXPECT_FALSE(text::AddWithinWidth(attempts, -1));
    EXPECT_EQ(attempts, std::numeric_limits<std::int16_t>::min());
}

}  // namespace
