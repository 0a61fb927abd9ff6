#include "forms/report_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using crawl::Outcome;
using ui::ReportColumn;
using ui::ReportView;
using Numbers = std::vector<std::size_t>;

class ReportRowsTest : public testing::Test {
  protected:
    void End(const std::string& address, Outcome outcome, std::string_view detail = "",
             crawl::Answer answer = {}) {
        report.Add(address);
        const std::size_t row = report.TakeNewest();
        answer.detail = detail;
        if (outcome == Outcome::Unanswered) {
            report.End(row, outcome, 3, detail);
        } else {
            report.NoteAnswer(row, 1, answer);
            report.NoteWrite(row);
        }
        ASSERT_EQ(report.Row(row).outcome, outcome);
    }
    Numbers Shown() const {
        Numbers numbers;
        for (std::size_t i = 0; i < rows.Count(); ++i)
            numbers.push_back(rows.RowAt(i));
        return numbers;
    }
    void Finish() {
        while (!rows.ContinueUpdate()) {
        }
        rows.TakeOver();
    }
    Numbers In(const ReportView& view) {
        rows.SetView(view);
        Finish();
        return Shown();
    }

    crawl::AddressReport report;
    ui::ReportRows rows{report};
};

TEST_F(ReportRowsTest, ShowsRowsInTheOrderOfEnding) {
    report.Add("www.site.com/0");
    report.Add("www.site.com/1");
    report.End(report.TakeNewest(), Outcome::NotAsked, 1);
    EXPECT_EQ(Shown(), (Numbers{1}));
    report.Stop();
    EXPECT_EQ(Shown(), (Numbers{1, 0}));
    report.Clear();
    EXPECT_EQ(rows.Count(), 0U);
}

TEST_F(ReportRowsTest, FiltersAndSorts) {
    End("www.site.com/b", Outcome::Saved, "", {.status = 200, .bytes = 9, .announced = 9});
    End("www.site.com/B/Page", Outcome::Error, "Not Found", {.status = 404, .bytes = 300});
    End("www.site.com/a", Outcome::Unanswered, "silent");
    End("www.site.com/longer-name-1", Outcome::Saved, "", {.status = 200, .bytes = 20});
    End("www.site.com/longer-name-0", Outcome::Error, "Forbidden", {.status = 403, .bytes = 9});

    const auto by = [](ReportColumn column, bool down = false) {
        return ReportView{.sorted_by = column, .descending = down};
    };
    const struct {
        ReportView view;
        Numbers shown;
    } cases[] = {{{.text = "NOT f"}, {1}},
                 {{.text = "page"}, {1}},
                 {{.text = "site.com/longer"}, {3, 4}},
                 {{.text = "nowhere"}, {}},
                 {{.outcome = Outcome::Error}, {1, 4}},
                 {{.text = "name", .outcome = Outcome::Error}, {4}},
                 {by(ReportColumn::Address), {1, 2, 0, 4, 3}},
                 {by(ReportColumn::Address, true), {3, 4, 0, 2, 1}},
                 {by(ReportColumn::Outcome), {0, 3, 1, 4, 2}},
                 {by(ReportColumn::Status), {2, 0, 3, 4, 1}},
                 {by(ReportColumn::Bytes), {2, 0, 4, 3, 1}},
                 {by(ReportColumn::Announced), {1, 2, 3, 4, 0}},
                 {by(ReportColumn::Tries), {0, 1, 3, 4, 2}},
                 {by(ReportColumn::Detail), {0, 3, 4, 1, 2}},
                 {{.text = "name", .sorted_by = ReportColumn::Address}, {4, 3}},
                 {{}, {0, 1, 2, 3, 4}}};
    for (const auto& [view, shown] : cases) {
        SCOPED_TRACE(testing::Message()
                     << "text \"" << view.text << "\", column "
                     << static_cast<int>(view.sorted_by.value_or(static_cast<ReportColumn>(-1))));
        EXPECT_EQ(In(view), shown);
    }
}

TEST_F(ReportRowsTest, KeepsTheOldRowsUntilTheNewOnesAreFound) {
    End("www.site.com/b", Outcome::Saved);
    End("www.site.com/a", Outcome::Saved);
    rows.SetView({.sorted_by = ReportColumn::Address});
    EXPECT_EQ(Shown(), (Numbers{0, 1}));
    Finish();
    EXPECT_EQ(Shown(), (Numbers{1, 0}));

    EXPECT_FALSE(rows.IsStale());
    End("www.site.com/0", Outcome::Saved);
    EXPECT_TRUE(rows.IsStale());
    EXPECT_EQ(Shown(), (Numbers{1, 0}));
    rows.BeginUpdate();
    rows.ContinueUpdate();
    End("www.site.com/1", Outcome::Saved);  // in the middle of the search
    Finish();
    EXPECT_TRUE(rows.IsStale()) << "another row has ended meanwhile";

    rows.BeginUpdate();
    rows.ContinueUpdate();
    report.Clear();
    rows.Clear();
    EXPECT_EQ(rows.Count(), 0U);
    Finish();
    EXPECT_EQ(rows.Count(), 0U);
}

TEST_F(ReportRowsTest, CountsTheRowsThatStay) {
    for (const char* name : {"a", "b", "a", "c"})
        End(std::string("www.site.com/") + name, Outcome::Saved);
    const auto stays = [this](const ReportView& view) {
        rows.SetView(view);
        while (!rows.ContinueUpdate()) {
        }
        const std::size_t count = rows.CountThatStays();
        rows.TakeOver();
        return count;
    };
    EXPECT_EQ(stays({.text = "/a"}), 1U);
    End("www.site.com/a", Outcome::Saved);
    EXPECT_EQ(stays({.text = "/a"}), 2U) << "rows are only added";
    EXPECT_EQ(stays({.text = "/b"}), 0U);
    EXPECT_EQ(stays({}), 0U);
    EXPECT_EQ(stays({}), 5U);
}

/// Long reports are sorted in many steps. The order must be that of a single sort.
TEST_F(ReportRowsTest, SortsLongReportsAsShortOnes) {
    std::mt19937 random(1);
    for (int i = 0; i < 5000; ++i) {
        std::string address = "www.site.com/folder" + std::to_string(random() % 40) + "/";
        address += std::string(random() % 12, 'x') + std::to_string(random() % 50);
        End(address, Outcome::Saved);
    }
    Numbers expected(report.Count());
    for (std::size_t i = 0; i < expected.size(); ++i)
        expected[i] = i;
    std::ranges::stable_sort(expected, {}, [this](std::size_t i) { return report.Row(i).address; });
    EXPECT_EQ(In({.sorted_by = ReportColumn::Address}), expected);
}

}  // namespace
