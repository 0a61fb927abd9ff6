// Measures the pauses of the window while the report's table has a million rows.
//
//     cmake --build --preset release --target report_table
//     QT_QPA_PLATFORM=offscreen build/release/bench/report_table [ROWS]
//
// A pause is the wall time between two iterations of the event loop, in milliseconds.
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "crawl/crawl_state.h"
#include "forms/report_dialog.h"
#include "forms/report_model.h"
#include "platform/qt/application.h"
#include "tests/fakes/fake_loop.h"
#include "tests/fakes/fake_system.h"

namespace {

using crawl::Outcome;

/// Measures the longest time between two iterations of the loop during its lifetime.
class PauseWatch {
  public:
    PauseWatch() {
        QObject::connect(&turns_, &QTimer::timeout, [this] {
            longest_ = std::max(longest_, since_.nsecsElapsed());
            since_.start();
        });
        turns_.start(0);
        since_.start();
    }
    double LongestMilliseconds() const {
        return 1e-6 * static_cast<double>(std::max(longest_, since_.nsecsElapsed()));
    }

  private:
    QTimer turns_;
    QElapsedTimer since_;
    qint64 longest_ = 0;
};

void Append(int count) {
    static unsigned number = 0;
    for (int i = 0; i < count; ++i, ++number) {
        crawl::Report.Add("www.site.com/folder" + std::to_string(number * 7919 % 1000) + "/page" +
                          std::to_string(number) + ".html");
        const std::size_t row = crawl::Report.TakeNewest();
        if (number % 50 == 0) {
            crawl::Report.End(row, Outcome::Unanswered, 3, "silent");
        } else {
            crawl::Report.NoteAnswer(row, 1, {.status = 200, .bytes = number % 100'000});
            crawl::Report.NoteWrite(row);
        }
    }
}

void Measure(const char* what, QTableView& rows, const std::function<void()>& act,
             const std::function<bool()>& is_done) {
    PauseWatch watch;
    QElapsedTimer time;
    time.start();
    act();
    while (!is_done())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double seconds = 1e-3 * static_cast<double>(time.elapsed());
    QTest::qWait(300);
    std::printf("| %s | %d rows in %.2f s | longest pause %.0f ms |\n", what,
                rows.model()->rowCount(), seconds, watch.LongestMilliseconds());
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application = platform::MakeApplication(argc, argv);
    const std::size_t count = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1'000'000;
    fakes::FakeLoop loop;
    const fakes::FakeSystem system{loop};
    QWidget parent;
    ui::ReportDialog& dialog = *ui::ReportDialog::ShowOver(&parent);
    auto& rows = *dialog.findChild<QTableView*>("Rows");
    auto& filter = *dialog.findChild<QLineEdit*>("Filter");
    auto& outcomes = *dialog.findChild<QListWidget*>("Outcomes");
    const auto& model = *dialog.findChild<ui::ReportModel*>();
    const auto found = [&model] { return !model.IsSearching(); };
    const auto sort = [&rows](int column) {
        return [&rows, column] { rows.sortByColumn(column, Qt::AscendingOrder); };
    };
    const auto type = [&filter](const char* keys) {
        return [&filter, keys] { QTest::keyClicks(&filter, keys); };
    };

    QTimer feed;
    QObject::connect(&feed, &QTimer::timeout, [&] {
        Append(2000);
        if (crawl::Report.Count() >= count) feed.stop();
    });
    const auto all_there = [&] { return model.rowCount() == static_cast<int>(count); };
    const auto append = [&feed] { feed.start(0); };
    const auto empty = [&filter] { filter.clear(); };
    const auto one_outcome = [&outcomes] { outcomes.setCurrentRow(5); };
    const auto all_outcomes = [&] {
        outcomes.setCurrentRow(0);
        sort(-1)();
    };
    const auto select_and_sort = [&] {
        rows.selectAll();
        sort(0)();
    };
    Measure("appended", rows, append, all_there);
    Measure("sorted by address", rows, sort(0), found);
    Measure("sorted by bytes", rows, sort(3), found);
    Measure("one key in the filter", rows, type("9"), found);
    Measure("two more", rows, type("99"), found);
    Measure("filter emptied", rows, empty, found);
    Measure("one outcome", rows, one_outcome, found);
    Measure("all outcomes, as they ended", rows, all_outcomes, found);
    Measure("all selected, then sorted by address", rows, select_and_sort, found);
    return 0;
}
