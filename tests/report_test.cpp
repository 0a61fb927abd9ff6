#include "crawl/report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace crawl;
using namespace std::chrono_literals;

namespace {

/// Records all notifications.
struct Listener : ReportObserver {
    void RowAdded(std::size_t row) override { told.push_back("added " + std::to_string(row)); }
    void RowChanged(std::size_t row) override { told.push_back("changed " + std::to_string(row)); }
    void RowSettled(std::size_t row) override { told.push_back("settled " + std::to_string(row)); }
    void AlreadyThereChanged() override { told.emplace_back("already there"); }
    void AboutToClear() override { told.emplace_back("cleared"); }
    std::vector<std::string> told;
};

class ReportTest : public testing::Test {
  protected:
    ReportTest() {
        report.clock = [this] { return now; };
        report.Clear();
    }
    /// Adds a row under way and returns its number.
    std::size_t Take(std::string_view address) {
        report.Add(address);
        return report.TakeNewest();
    }
    void Answered(std::size_t row, const Answer& answer, int attempts = 1) {
        report.NoteAnswer(row, attempts, answer);
        report.NoteWrite(row);
    }
    Outcome OutcomeOf(std::size_t row) const { return report.Row(row).outcome; }

    std::chrono::milliseconds now{5000};
    AddressReport report;
    Listener listener;
};

TEST_F(ReportTest, ABetterOutcomeReplacesAWorseOneUntilOneIsGood) {
    const Answer whole{.status = 200, .bytes = 3};
    const Answer part{.status = 200, .bytes = 3, .announced = 9};
    const Answer missing{.status = 404, .detail = "Not Found"};
    const std::size_t row = Take("a");
    report.End(row, Outcome::Unanswered, 3, "silent");
    report.NoteFailedTry(row, 1, "refused");
    EXPECT_EQ(report.Row(row).detail, "silent");
    report.NoteAnswer(row, 1, whole);
    report.NoteWrite(row, "No space left on device");
    EXPECT_EQ(OutcomeOf(row), Outcome::NotWritten);
    EXPECT_EQ(report.Row(row).bytes, 3U);
    report.End(row, Outcome::Unanswered, 3, "silent");
    EXPECT_EQ(report.Row(row).detail, "No space left on device");
    Answered(row, part, 2);
    EXPECT_EQ(OutcomeOf(row), Outcome::Short);
    report.End(row, Outcome::TooLarge, 3);
    EXPECT_EQ(OutcomeOf(row), Outcome::Short);
    Answered(row, missing, 3);
    Answered(row, whole, 1);
    EXPECT_EQ(OutcomeOf(row), Outcome::Error);
    EXPECT_EQ(report.Row(row).attempts, 3);
    EXPECT_EQ(report.CountOf(Outcome::Error), 1U);
    EXPECT_EQ(report.Count(), 1U);
}

TEST_F(ReportTest, OnlyAnAnswerCanBeWritten) {
    const std::size_t first = Take("a");
    const std::size_t second = Take("b");
    report.NoteWrite(first);
    report.NoteWrite(second, "why");
    EXPECT_EQ(report.CountOf(Outcome::UnderWay), 2U);
    report.NoteAnswer(first, 1, {.status = 200});
    report.NoteWrite(second);
    report.NoteWrite(first);
    EXPECT_EQ(report.CountOf(Outcome::UnderWay), 2U) << "an answer is written at once or never";
    report.NoteAnswer(first, 1, {.status = 200});
    report.End(first, Outcome::TooLarge, 1);
    report.NoteWrite(first);
    EXPECT_EQ(OutcomeOf(first), Outcome::TooLarge);
}

TEST_F(ReportTest, AStopSettlesAllRowsAndTheUnfinishedOnesLast) {
    report.Add("queued");
    const std::size_t under_way = Take("under way");
    report.NoteFailedTry(under_way, 1, "name unknown");
    const std::size_t given_up = Take("given up");
    report.End(given_up, Outcome::Unanswered, 3, "silent");
    report.AddObserver(listener);
    report.Stop();
    const std::vector<std::string> told = {"settled 2", "changed 0", "settled 0", "changed 1",
                                           "settled 1"};
    EXPECT_EQ(listener.told, told);
    EXPECT_EQ(report.Row(under_way).detail, "name unknown");
    EXPECT_EQ(report.CountOf(Outcome::Unfinished), 2U);

    // A scan that was running at the stop may still queue something.
    report.Add("late");
    EXPECT_EQ(OutcomeOf(3), Outcome::Unfinished);
    report.Stop();
    Answered(under_way, {.status = 200});
    EXPECT_EQ(OutcomeOf(under_way), Outcome::Unfinished);
    EXPECT_EQ(report.TakeNewest(), kNoRow);
}

TEST_F(ReportTest, ARowSettlesOnceWhenItIsGoodOrItsConnectionHasAnotherJob) {
    const std::size_t good = Take("good");
    const std::size_t bad = Take("bad");
    report.AddObserver(listener);
    Answered(good, {.status = 200});
    report.End(bad, Outcome::NotAsked, 1);
    EXPECT_EQ(listener.told, (std::vector<std::string>{"changed 0", "settled 0", "changed 1"}));
    listener.told.clear();
    report.TakeNewest(good);
    report.TakeNewest(bad);
    report.TakeNewest(bad);
    report.Stop();
    EXPECT_EQ(listener.told, std::vector<std::string>{"settled 1"});
    report.RemoveObserver(listener);
    report.Clear();
    EXPECT_EQ(listener.told.size(), 1U);
}

TEST_F(ReportTest, AClearForgetsEverything) {
    Take("a");
    Answered(Take("b"), {.status = 404, .detail = "Not Found"});
    report.NoteFile("old");
    report.CountAlreadyThere();
    report.Stop();
    report.AddObserver(listener);
    const std::uint64_t changes = report.Changes();
    report.Clear();
    EXPECT_GT(report.Changes(), changes);
    EXPECT_EQ(listener.told, std::vector<std::string>{"cleared"});
    EXPECT_EQ(report.Count(), 0U);
    EXPECT_EQ(report.AlreadyThere(), 0U);
    EXPECT_FALSE(report.HasFile("old"));
    for (std::size_t i = 0; i < kOutcomeCount; ++i)
        EXPECT_EQ(report.CountOf(static_cast<Outcome>(i)), 0U);

    // A connection may still have the number of a row that was cleared.
    report.End(1, Outcome::Unanswered, 3, "silent");
    Answered(kNoRow, {.status = 200});
    EXPECT_EQ(report.TakeNewest(1), kNoRow);
    Answered(Take("c"), {.status = 404, .detail = "Not Found"});
    EXPECT_EQ(report.Row(0).detail, "Not Found");
}

TEST_F(ReportTest, TextsOfAnyBytesStayInPlace) {
    const std::string odd("a\0,\"\r\n\xff", 7);
    const std::size_t first = Take(odd);
    report.NoteAnswer(first, 1, {.status = 301, .detail = "first"});
    report.NoteWrite(first);
    const std::string_view address = report.Row(first).address;
    for (int i = 0; i < 3000; ++i) {
        const std::string text = std::to_string(i) + std::string(100, 'x');
        Answered(Take(text), {.status = 301, .detail = text});
    }
    Take(std::string(100'000, 'l'));
    EXPECT_EQ(address, odd);
    EXPECT_EQ(report.Row(first).detail, "first");
    EXPECT_EQ(report.Row(1).detail, "0" + std::string(100, 'x'));
    EXPECT_EQ(report.Row(3000).detail, report.Row(3000).address);
    EXPECT_EQ(report.Row(3001).address.size(), 100'000U);
    EXPECT_EQ(Take(""), 3002U);
}

}  // namespace
