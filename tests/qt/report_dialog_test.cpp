#include "forms/report_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QTableView>
#include <QToolTip>

#include "crawl/crawl_state.h"
#include "platform/path_text.h"
#include "tests/qt/form_test.h"
#include "widgets/elided_label.h"

namespace {

using crawl::Outcome;
using crawl::Report;
using Texts = std::vector<std::string>;

class ReportDialogTest : public FormTest {
  protected:
    ReportDialogTest() {
        Report.Clear();
        crawl::ReportFolder = "c:\\mirror\\";
        crawl::TargetFolder = "c:\\elsewhere\\";  // chosen for the next crawl
        crawl::SiteHost = "site.com";
    }
    ~ReportDialogTest() override {
        delete dialog.data();
        RunDeletions();
        Report.Clear();
    }
    void Open() {
        dialog = ui::ReportDialog::ShowOver(&parent);
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        CheckModel(*Rows().model());
    }
    static void Saved(const std::string& address, std::uint64_t bytes = 5) {
        Report.Add(address);
        const std::size_t row = Report.TakeNewest();
        Report.NoteAnswer(row, 1, {.status = 200, .bytes = bytes, .announced = bytes});
        Report.NoteWrite(row);
    }
    static void Lost(const std::string& address, std::string_view why) {
        Report.Add(address);
        Report.End(Report.TakeNewest(), Outcome::Unanswered, 3, why);
    }
    QTableView& Rows() { return *Find<QTableView>(*dialog, "Rows"); }
    std::string Cell(int row, int column) {
        return Rows().model()->index(row, column).data().toString().toStdString();
    }
    Texts Addresses() {
        Texts addresses;
        for (int row = 0; row < Rows().model()->rowCount(); ++row)
            addresses.push_back(Cell(row, 0));
        return addresses;
    }
    bool Shows(const Texts& addresses) {
        return WaitFor([&] { return Addresses() == addresses; });
    }
    std::string Summary() { return Find<QLabel>(*dialog, "Summary")->text().toStdString(); }
    QListWidget& Outcomes() { return *Find<QListWidget>(*dialog, "Outcomes"); }
    void ClickOutcome(int row) {
        QTest::mouseClick(Outcomes().viewport(), Qt::LeftButton, {},
                          Outcomes().visualItemRect(Outcomes().item(row)).center());
    }
    void SortBy(int column) {
        QHeaderView& header = *Rows().horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(column) + 10, header.height() / 2});
    }

    QWidget parent;
    QPointer<ui::ReportDialog> dialog;
};

TEST_F(ReportDialogTest, ShowsEachRowAsItEnds) {
    Saved("www.site.com/", 12345);
    Open();
    ASSERT_EQ(Addresses(), Texts{"www.site.com/"});
    EXPECT_EQ(Cell(0, 1), "saved");
    EXPECT_EQ(Cell(0, 2), "200");
    EXPECT_EQ(Cell(0, 3), "12,345");
    EXPECT_EQ(Cell(0, 5), "1");
    EXPECT_EQ(Summary(), "1 address");

    Report.Add("www.site.com/later");
    Lost("www.site.com/a", "silent");
    EXPECT_TRUE(Shows({"www.site.com/", "www.site.com/a"}));
    EXPECT_EQ(Cell(1, 1), "unanswered");
    EXPECT_EQ(Cell(1, 2), "");
    EXPECT_EQ(Cell(1, 7), "silent");
    for (const bool lost : {false, true}) {
        const QModelIndex outcome = Rows().model()->index(lost ? 1 : 0, 1);
        EXPECT_EQ(outcome.data(Qt::ForegroundRole).isValid(), lost) << "only losses are coloured";
    }
    EXPECT_EQ(Summary(), "2 addresses, 1 not fetched yet");
    EXPECT_EQ(Outcomes().item(0)->text(), "All (2)");
    EXPECT_EQ(Outcomes().item(5)->text(), "unanswered (1)");
    EXPECT_NE(Outcomes().item(4)->foreground(), Outcomes().item(5)->foreground())
        << "none is paler";

    QTest::keyClick(&Rows(), Qt::Key_End);
    EXPECT_EQ(Rows().currentIndex().row(), 1);
    Report.Clear();
    EXPECT_FALSE(Rows().currentIndex().isValid());
    EXPECT_EQ(Addresses(), Texts{}) << "no row of the old crawl is left";
}

TEST_F(ReportDialogTest, FiltersByOneClickAndWhileTyping) {
    Saved("www.site.com/a");
    Lost("www.site.com/b", "refused");
    Saved("www.site.com/c");
    Open();
    ClickOutcome(1);
    EXPECT_EQ(Addresses(), (Texts{"www.site.com/a", "www.site.com/c"}));
    EXPECT_EQ(Summary(), "2 of 3 addresses");
    Saved("www.site.com/d");
    EXPECT_TRUE(Shows({"www.site.com/a", "www.site.com/c", "www.site.com/d"}));
    ClickOutcome(0);
    QTest::keySequence(dialog, QKeySequence::Find);
    QTest::keyClicks(QApplication::focusWidget(), "REFUS");
    EXPECT_EQ(Addresses(), Texts{"www.site.com/b"});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &Rows());
    EXPECT_EQ(Rows().currentIndex().row(), 0);
    QTest::keySequence(dialog, QKeySequence::Find);
    QTest::keyClicks(QApplication::focusWidget(), "/c");
    EXPECT_EQ(Addresses(), Texts{"www.site.com/c"}) << "typing replaces the last filter";
}

TEST_F(ReportDialogTest, SortsByAClickAndKeepsTheSelection) {
    for (const char* name : {"b", "c", "a"})
        Saved(std::string("www.site.com/") + name);
    Open();
    QTest::keyClick(&Rows(), Qt::Key_Home);
    QTest::keyClick(&Rows(), Qt::Key_End);
    EXPECT_EQ(Rows().currentIndex().row(), 2);
    QTest::keyClick(&Rows(), Qt::Key_Home);
    EXPECT_EQ(Rows().currentIndex().row(), 0);
    SortBy(0);
    EXPECT_EQ(Addresses(), (Texts{"www.site.com/a", "www.site.com/b", "www.site.com/c"}));
    EXPECT_EQ(Rows().currentIndex().row(), 1) << "still b";
    SortBy(0);
    EXPECT_EQ(Addresses(), (Texts{"www.site.com/c", "www.site.com/b", "www.site.com/a"}));
    Saved("www.site.com/0");
    EXPECT_TRUE(Shows({"www.site.com/c", "www.site.com/b", "www.site.com/a", "www.site.com/0"}));
    EXPECT_EQ(Rows().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(Rows().currentIndex().row(), 1);
    SortBy(0);
    EXPECT_EQ(Cell(0, 0), "www.site.com/b") << "the third click restores the order of ending";
    QMenu* const menu = Rows().actions().back()->menu();
    ASSERT_NE(menu, nullptr);
    menu->actions().at(1)->trigger();
    EXPECT_EQ(Cell(0, 0), "www.site.com/0") << "by address, without a mouse";
}

TEST_F(ReportDialogTest, ShowsWhatIsCutOffAsATooltip) {
    Saved("www.site.com/short");
    Saved("www.site.com/" + std::string(200, 'x'));
    Open();
    for (const int row : {0, 1}) {
        const QPoint place = Rows().visualRect(Rows().model()->index(row, 0)).center();
        QHelpEvent help(QEvent::ToolTip, place, Rows().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(Rows().viewport(), &help);
        EXPECT_EQ(QToolTip::isVisible(), row == 1);
    }
    QToolTip::hideText();
}

TEST_F(ReportDialogTest, FollowsTheNewestRowUntilScrolledUp) {
    for (int i = 0; i < 500; ++i)
        Saved("www.site.com/" + std::to_string(i));
    Open();
    const QScrollBar& bar = *Rows().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    Saved("www.site.com/500");
    ASSERT_TRUE(WaitFor([&] { return Rows().model()->rowCount() == 501; }));
    EXPECT_EQ(bar.value(), bar.maximum());
    Rows().verticalScrollBar()->setValue(7);
    Saved("www.site.com/501");
    ASSERT_TRUE(WaitFor([&] { return Rows().model()->rowCount() == 502; }));
    EXPECT_EQ(bar.value(), 7);
}

TEST_F(ReportDialogTest, OpensFilesAndAddressesAndCopies) {
    Saved("www.site.com/page.php?a=1");
    Lost("www.site.com/none.html", "silent");
    system.files.Have("c:\\mirror\\site.com\\page.php_a=1.html", "page");
    Open();
    QTest::keyClick(&Rows(), Qt::Key_Home);
    QTest::keyClick(&Rows(), Qt::Key_Return);
    EXPECT_EQ(system.processes.files, Texts{"c:\\mirror\\site.com\\page.php_a=1.html"});
    QTest::keyClick(&Rows(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(system.processes.addresses, Texts{"http://www.site.com/page.php?a=1"});

    QTest::keyClick(&Rows(), Qt::Key_Down);
    Click(*dialog, "OpenFileButton");
    EXPECT_EQ(system.processes.files.size(), 1U);
    EXPECT_TRUE(Summary().starts_with("No such file: ")) << Summary();

    Rows().setFocus();
    QTest::keySequence(&Rows(), QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(),
              "www.site.com/none.html\tunanswered\t\t\t\t3\t0.000\tsilent\n");
    QTest::keySequence(&Rows(), QKeySequence::SelectAll);
    QTest::keyClick(&Rows(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              "www.site.com/page.php?a=1\nwww.site.com/none.html\n");
}

TEST_F(ReportDialogTest, SavesTheWholeReport) {
    Saved("www.site.com/a,b");
    Lost("www.site.com/c", "silent");
    Report.Add("www.site.com/queued");
    const std::string path_text = "z:\\tmp\\report.csv";
    const std::string path = platform::SystemPathOf(path_text).value_or("");
    for (const bool disk_full : {false, true}) {
        SCOPED_TRACE(disk_full);
        Open();
        system.files.Have("c:");
        system.files.Have("z:\\tmp");
        system.files.disk_full = disk_full;
        ClickOutcome(1);  // hidden rows are saved, too
        Click(*dialog, "SaveAs");
        auto* const chooser = dialog->findChild<QFileDialog*>();
        ASSERT_NE(chooser, nullptr);
        EXPECT_TRUE(chooser->isVisible());
        EXPECT_EQ(chooser->acceptMode(), QFileDialog::AcceptSave);
        EXPECT_TRUE(chooser->nameFilters().value(0).contains("*.csv"));
        emit chooser->fileSelected(platform::FromBytes(path));
        ASSERT_TRUE(WaitFor([&] { return Summary().find(path) != Summary().npos; }));
        if (disk_full) {
            EXPECT_TRUE(Summary().starts_with(path + " was not saved: ")) << Summary();
        } else {
            Saved("www.site.com/later");
            EXPECT_TRUE(Shows({"www.site.com/a,b", "www.site.com/later"}));
            EXPECT_EQ(Summary(), "Saved as " + path) << "the crawl does not replace it";
            ClickOutcome(0);
            EXPECT_EQ(Summary(), "3 addresses, 1 not fetched yet");
            EXPECT_EQ(system.files.At(path_text),
                      "address,outcome,status,bytes,announced,tries,seconds,detail\r\n"
                      "\"www.site.com/a,b\",saved,200,5,5,1,0.000,\r\n"
                      "www.site.com/c,unanswered,,,,3,0.000,silent\r\n");
        }
        delete dialog.data();
    }
    Open();
    Click(*dialog, "SaveAs");
    emit dialog->findChild<QFileDialog*>()->fileSelected(platform::FromBytes(path));
    Report.Clear();
    EXPECT_EQ(Summary(), path + " was not saved: a new download has started");
}

TEST_F(ReportDialogTest, OpensOnlyOnce) {
    Open();
    const ui::ReportDialog* const first = dialog;
    Open();
    EXPECT_EQ(dialog, first);
    QTest::keyClick(dialog, Qt::Key_Escape);
    RunDeletions();
    EXPECT_EQ(dialog, nullptr);
}

}  // namespace
