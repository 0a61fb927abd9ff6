#include "ui/crawl_summary.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <system_error>

namespace {

using crawl::Outcome;

const std::string kFull = std::generic_category().message(ENOSPC);
constexpr crawl::Answer kGood = {.status = 200, .bytes = 5};

class CrawlSummaryTest : public testing::Test {
  protected:
    std::size_t Take(std::string_view address = "www.site.com/page") {
        report.Add(address);
        return report.TakeNewest();
    }
    void Answered(const crawl::Answer& answer = kGood, std::string_view why_not_written = "") {
        const std::size_t row = Take();
        report.NoteAnswer(row, 1, answer);
        report.NoteWrite(row, why_not_written);
    }
    void Unanswered(std::string_view why) { report.End(Take(), Outcome::Unanswered, 3, why); }

    ui::CrawlSummary Now(ui::CrawlCircumstances circumstances) {
        circumstances.folder = "~/Websites";
        return reporter.Summary(circumstances);
    }
    ui::CrawlSummary Running() { return Now({.running = true}); }
    ui::CrawlSummary Ended() {
        report.Stop();
        return Now({});
    }

    crawl::AddressReport report;
    ui::CrawlReporter reporter{report};
};

void ExpectBar(const ui::CrawlSummary& summary, std::size_t done, std::size_t known, bool is_well) {
    EXPECT_EQ(summary.done, done);
    EXPECT_EQ(summary.known, known);
    EXPECT_EQ(summary.is_well, is_well);
}

TEST_F(CrawlSummaryTest, SaysNothingBeforeTheFirstCrawl) {
    EXPECT_EQ(Now({}).words, "");
    EXPECT_EQ(Now({}).known, 0U);
    EXPECT_FALSE(Now({}).warns);
}

TEST_F(CrawlSummaryTest, CountsWhileACrawlRunsAndAfterwards) {
    const std::size_t start = Take("www.site.com");
    EXPECT_EQ(Running().words, "0 files saved, 1 to go");
    report.NoteAnswer(start, 1, kGood);
    report.NoteWrite(start);
    report.Add("www.site.com/a");
    report.Add("www.site.com/b");
    EXPECT_EQ(Running().words, "1 file saved, 2 to go");
    ExpectBar(Running(), 1, 3, true);
    EXPECT_FALSE(Running().warns);
    EXPECT_EQ(Now({.running = true, .paused = true}).words,
              "Paused: no new files start. 1 file saved, 2 to go");
    const ui::CrawlSummary halted = Now({.running = true, .has_connections = false});
    EXPECT_EQ(halted.words, "0 connections: nothing is fetched. 1 file saved, 2 to go");
    EXPECT_TRUE(halted.warns);

    EXPECT_EQ(Ended().words, "1 saved in ~/Websites, stopped");
    ExpectBar(Ended(), 1, 3, false);
    EXPECT_FALSE(Ended().warns);
}

TEST_F(CrawlSummaryTest, IsFullOnlyWhenAllIsWell) {
    for (int i = 0; i < 336; ++i)
        Answered();
    Answered({.status = 404});
    EXPECT_EQ(Ended().words, "336 files saved, 1 error");
    ExpectBar(Ended(), 337, 337, true);
    EXPECT_FALSE(Ended().warns);
}

TEST_F(CrawlSummaryTest, NamesEveryKindOfLoss) {
    Answered();
    Answered({.status = 301});
    Answered({.status = 404});
    Answered({.status = 500});
    Answered({.status = 200, .bytes = 4, .announced = 5});
    Unanswered("silent");
    report.End(Take(), Outcome::TooLarge, 1);
    report.End(Take(), Outcome::NotAsked, 1);
    report.CountAlreadyThere();
    EXPECT_EQ(Running().words,
              "1 file saved, 1 moved, 2 errors, 1 cut short, 1 unanswered, 1 too large, "
              "1 not asked for, 0 to go, 1 already there");
    EXPECT_TRUE(Running().warns);
    ExpectBar(Running(), 4, 8, false);
    ExpectBar(Ended(), 4, 8, false);
}

TEST_F(CrawlSummaryTest, SaysWhyFilesWereNotWritten) {
    Answered();
    Answered(kGood, kFull);
    EXPECT_EQ(Running().words, "The disk is full: 1 file was not written. 1 file saved, 0 to go");
    for (int i = 0; i < 6; ++i)
        Answered(kGood, kFull);
    EXPECT_EQ(Ended().words, "The disk is full: 7 files were not written. 1 file saved");
    ExpectBar(Ended(), 1, 8, false);

    report.Clear();
    reporter.Reset();
    Answered(kGood, "Permission denied");
    EXPECT_EQ(Ended().words, "1 file was not written (Permission denied). 0 files saved");
    ExpectBar(Ended(), 0, 1, false);
}

/// A slot that idles asks again, and may find room on the disk then.
TEST_F(CrawlSummaryTest, ForgetsAFaultThatMended) {
    const std::size_t row = Take();
    report.NoteAnswer(row, 1, kGood);
    report.NoteWrite(row, kFull);
    EXPECT_TRUE(Running().warns);
    report.NoteAnswer(row, 2, kGood);
    report.NoteWrite(row);
    EXPECT_EQ(Running().words, "1 file saved, 0 to go");
    ExpectBar(Running(), 1, 1, true);
}

TEST_F(CrawlSummaryTest, SaysWhatIsWrongWithTheFirstAddress) {
    const std::pair<const char*, const char*> cases[] = {
        {"name unknown", "No such host: www.exmple.org"},
        {"no name server answered", "No name server answers for www.exmple.org"},
        {"refused", "www.exmple.org refused the connection"},
        {"unreachable", "www.exmple.org cannot be reached"},
        {"silent", "www.exmple.org does not answer"},
        {"silent after 12 bytes", "www.exmple.org stopped in the middle of its answer"},
        {"closed without an answer", "www.exmple.org closed the connection without an answer"},
        {"reset after 3 bytes", "www.exmple.org broke off the connection"},
        {"what nobody foresaw", "www.exmple.org: what nobody foresaw"},
    };
    for (const auto& [why, words] : cases) {
        report.Clear();
        const std::size_t row = Take("www.exmple.org/a/b.html");
        report.NoteFailedTry(row, 1, why);
        EXPECT_EQ(Running().words, words) << "long before it is given up";
        EXPECT_TRUE(Running().warns);
        report.End(row, Outcome::Unanswered, 3, why);
        EXPECT_EQ(Ended().words, words);
        ExpectBar(Ended(), 0, 1, false);
    }
}

TEST_F(CrawlSummaryTest, SaysWhatTheFirstAddressAnsweredInsteadOfAPage) {
    const std::pair<crawl::Answer, const char*> cases[] = {
        {{.status = 301, .detail = "https://www.site.com/"},
         "www.site.com answered 301: it has moved to https://www.site.com/"},
        {{.status = 302}, "www.site.com answered 302"},
        {{.status = 404, .detail = "Not Found"}, "www.site.com answered 404: Not Found"},
        {{.status = 200, .bytes = 1, .announced = 2},
         "Only a part of http://www.site.com/page came"},
    };
    for (const auto& [answer, words] : cases) {
        report.Clear();
        Answered(answer);
        EXPECT_EQ(Ended().words, words);
        EXPECT_TRUE(Ended().warns);
        ExpectBar(Ended(), 0, 1, false);
    }
}

}  // namespace
