#include "crawl/report_text.h"

#include <gtest/gtest.h>

using namespace crawl;
using namespace std::chrono_literals;

namespace {

class ReportText : public testing::Test {
  protected:
    ReportText() {
        report.clock = [this] { return now; };
        report.Clear();
    }
    std::size_t Take(std::string_view address) {
        report.Add(address);
        return report.TakeNewest();
    }
    void Answer(std::string_view address, const crawl::Answer& answer,
                std::string_view why_not = {}) {
        const std::size_t row = Take(address);
        report.NoteAnswer(row, 2, answer);
        report.NoteWrite(row, why_not);
    }
    std::string NewestLine() { return CsvLine(report.Row(report.Count() - 1)); }

    std::chrono::milliseconds now{0};
    AddressReport report;
};

TEST_F(ReportText, ALineHasWhatIsKnown) {
    Answer("a.com/x", {.status = 0, .bytes = 1'000'000'000'000, .announced = 0});
    EXPECT_EQ(NewestLine(), "a.com/x,saved,,1000000000000,0,2,0.000,\r\n");
    const std::size_t row = Take("a.com/x");
    now += 61'005ms;
    report.End(row, Outcome::Unanswered, 3, "refused");
    EXPECT_EQ(NewestLine(), "a.com/x,unanswered,,,,3,61.005,refused\r\n");
    Answer("a.com/x", {.status = 404, .bytes = 3}, "No space left on device");
    EXPECT_EQ(NewestLine(), "a.com/x,not written,404,3,,2,0.000,No space left on device\r\n");
}

TEST_F(ReportText, OddTextsAreQuotedAndKeepTheirBytes) {
    const std::pair<std::string, std::string> cases[] = {
        {"plain text;'\t", "plain text;'\t"},
        {"a,b", "\"a,b\""},
        {"\"a\" \"", "\"\"\"a\"\" \"\"\""},
        {"a\rb", "\"a\rb\""},
        {"a\nb", "\"a\nb\""},
        {std::string("\0\xff\xc3", 3), std::string("\0\xff\xc3", 3)},
        {"", ""}};
    for (const auto& [text, field] : cases) {
        Answer(text, {.status = 301, .bytes = 1, .detail = text});
        EXPECT_EQ(NewestLine(), field + ",moved,301,1,,2,0.000," + field + "\r\n");
    }
}

TEST_F(ReportText, TheSummaryCountsAndGivesReasons) {
    EXPECT_EQ(SummaryOf(report), "");
    Answer("a", {.status = 404});
    Answer("a", {.status = 200});
    Answer("a", {.status = 200}, "full");
    EXPECT_EQ(SummaryOf(report), "1 saved, 1 error, 1 not written (full)");
    for (const char* reason : {"full", "two", "three", "full"})
        Answer("a", {.status = 200}, reason);
    EXPECT_EQ(SummaryOf(report), "1 saved, 1 error, 5 not written (full; two; three)");
    Answer("a", {.status = 200}, "four");
    Answer("a", {.status = 200}, "five");
    Answer("a", {.status = 301});
    Answer("a", {.status = 200, .announced = 9});
    for (const Outcome outcome : {Outcome::Unanswered, Outcome::TooLarge, Outcome::NotAsked})
        report.End(Take("a"), outcome, 1);
    report.Add("a");
    report.Stop();
    report.CountAlreadyThere();
    EXPECT_EQ(SummaryOf(report),
              "1 saved, 1 error, 1 moved, 1 short, 1 unanswered, 7 not written (full; two; three; "
              "...), 1 too large, 1 not asked, 1 unfinished, 1 already there");
}

}  // namespace
