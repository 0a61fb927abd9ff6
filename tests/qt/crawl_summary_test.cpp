#include "ui/crawl_summary.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <system_error>

namespace {

using crawl::Outcome;
using std::string_literals::operator""s;

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

    /// "words [done of known, well, warns]"
    std::string Now(ui::CrawlCircumstances circumstances) {
        circumstances.folder = "~/Websites";
        const ui::CrawlSummary now = reporter.Summary(circumstances);
        return now.words + " [" + std::to_string(now.done) + " of " + std::to_string(now.known) +
               (now.is_well ? ", well" : "") + (now.warns ? ", warns]" : "]");
    }
    std::string Running() { return Now({.running = true}); }
    std::string Ended() {
        report.Stop();
        return Now({});
    }

    crawl::AddressReport report;
    ui::CrawlReporter reporter{report};
};

TEST_F(CrawlSummaryTest, CountsWhileACrawlRunsAndAfterwards) {
    EXPECT_EQ(Now({}), " [0 of 0]") << "before the first crawl";
    const std::size_t start = Take("www.site.com");
    EXPECT_EQ(Running(), "0 files saved, 1 to go [0 of 1, well]");
    report.NoteAnswer(start, 1, kGood);
    report.NoteWrite(start);
    report.Add("www.site.com/a");
    report.Add("www.site.com/b");
    EXPECT_EQ(Running(), "1 file saved, 2 to go [1 of 3, well]");
    EXPECT_EQ(Now({.running = true, .paused = true}),
              "Paused: no new files start. 1 file saved, 2 to go [1 of 3, well]");
    EXPECT_EQ(Now({.running = true, .has_connections = false}),
              "0 connections: nothing is fetched. 1 file saved, 2 to go [1 of 3, well, warns]");
    EXPECT_EQ(Ended(), "1 saved in ~/Websites, stopped [1 of 3]");
}

TEST_F(CrawlSummaryTest, IsFullOnlyWhenAllIsWell) {
    for (int i = 0; i < 336; ++i)
        Answered();
    Answered({.status = 404});
    EXPECT_EQ(Ended(), "336 files saved, 1 error [337 of 337, well]");
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
    EXPECT_EQ(Running(),
              "1 file saved, 1 moved, 2 errors, 1 cut short, 1 unanswered, 1 too large, "
              "1 not asked for, 0 to go, 1 already there [4 of 8, warns]");
    EXPECT_TRUE(Ended().ends_with("[4 of 8, warns]")) << Ended();
}

TEST_F(CrawlSummaryTest, SaysWhyFilesWereNotWritten) {
    Answered();
    Answered(kGood, kFull);
    EXPECT_EQ(Running(),
              "The disk is full: 1 file was not written. 1 file saved, 0 to go [1 of 2, warns]");
    for (int i = 0; i < 6; ++i)
        Answered(kGood, kFull);
    EXPECT_EQ(Ended(), "The disk is full: 7 files were not written. 1 file saved [1 of 8, warns]");

    report.Clear();
    reporter.Reset();
    Answered(kGood, "Permission denied");
    EXPECT_EQ(Ended(), "1 file was not written (Permission denied). 0 files saved [0 of 1, warns]");
}

/// An idle slot asks again, and by then the disk may have room.
TEST_F(CrawlSummaryTest, ForgetsAFaultThatWasResolved) {
    const std::size_t row = Take();
    report.NoteAnswer(row, 1, kGood);
    report.NoteWrite(row, kFull);
    EXPECT_TRUE(Running().ends_with(", warns]"));
    report.NoteAnswer(row, 2, kGood);
    report.NoteWrite(row);
    EXPECT_EQ(Running(), "1 file saved, 0 to go [1 of 1, well]");
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
        {"reset after 3 bytes", "www.exmple.org reset the connection"},
        {"what nobody foresaw", "www.exmple.org: what nobody foresaw"}};
    for (const auto& [why, words] : cases) {
        report.Clear();
        const std::size_t row = Take("www.exmple.org/a/b.html");
        report.NoteFailedTry(row, 1, why);
        EXPECT_EQ(Running(), words + " [0 of 1, well, warns]"s) << "long before the last try";
        report.End(row, Outcome::Unanswered, 3, why);
        EXPECT_EQ(Ended(), words + " [0 of 1, warns]"s);
    }
}

TEST_F(CrawlSummaryTest, SaysWhatCameInsteadOfTheFirstPage) {
    const std::pair<crawl::Answer, const char*> cases[] = {
        {{.status = 301, .detail = "https://www.site.com/"},
         "www.site.com answered 301: it has moved to https://www.site.com/"},
        {{.status = 302}, "www.site.com answered 302"},
        {{.status = 404, .detail = "Not Found"}, "www.site.com answered 404: Not Found"},
        {{.status = 200, .bytes = 1, .announced = 2},
         "Only a part of http://www.site.com/page arrived"}};
    for (const auto& [answer, words] : cases) {
        report.Clear();
        Answered(answer);
        EXPECT_EQ(Ended(), words + " [0 of 1, warns]"s);
    }
}

}  // namespace
