#include <QAccessible>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>

#include "engine/endings.h"
#include "engine/site_start.h"
#include "forms/report_dialog.h"
#include "forms/search_dialog.h"
#include "tests/qt/window_bench.h"

using platform::BoxAnswer;

/// The strip at the bottom of the window, and the report that it opens.
using WindowStrip = bench::WindowTest;

#ifdef _WIN32
#define WEBSITES "c:\\Websites"
#else
#define WEBSITES "~/Websites"
#endif

TEST_F(WindowStrip, SaysWhatWasSavedAfterAStop) {
    pages = {{"/", "<a href=\"b.html\">b</a>"}};
    Open();
    EXPECT_FALSE(The<QAbstractButton>("Report").isEnabled()) << "there is nothing to report yet";
    const int top = The<QLabel>("Progress").y();
    StartByKeys("site.com");
    ASSERT_TRUE(WaitFor([&] { return crawl::Report.CountOf(crawl::Outcome::Saved) == 1; }));
    EXPECT_EQ(The<QLabel>("Progress").y(), top) << "the bar has always had its room";
    system.boxes.answers = {BoxAnswer::Yes};
    Click("Command2");
    EXPECT_EQ(The<QLabel>("Label6").text(), "Operation Cancelled.");
    EXPECT_EQ(The<QLabel>("Progress").text(), "1 saved in " WEBSITES ", stopped");
    EXPECT_LT(The<QProgressBar>("ProgressBar").value(), 1000);
    EXPECT_EQ(The<QProgressBar>("ProgressBar").accessibleDescription(), "Not all files were saved");
    EXPECT_EQ(
        QAccessible::queryAccessibleInterface(&The<QLabel>("Progress"))->text(QAccessible::Name),
        "1 saved in " WEBSITES ", stopped");
    crawl::TargetFolder = "c:\\elsewhere\\";  // chosen for the next crawl
    The<QComboBox>("txtMax").lineEdit()->selectAll();
    QTest::keyClicks(The<QComboBox>("txtMax").lineEdit(), "0");
    EXPECT_EQ(The<QLabel>("Progress").text(),
              "0 connections: nothing is fetched. 1 saved in " WEBSITES ", stopped");
    Window().ChooseConnections(4);
    EXPECT_EQ(The<QLabel>("Progress").text(), "1 saved in " WEBSITES ", stopped");
}

TEST_F(WindowStrip, ShowsReportAndSearchDuringTheCrawl) {
    Open();
    StartByKeys("silent.com");
    ASSERT_TRUE(WaitFor([&] { return The<QAbstractButton>("Report").isEnabled(); }));
    QTest::keyClick(&Window(), Qt::Key_R, Qt::ControlModifier);
    ASSERT_TRUE(WaitFor([&] { return Window().findChild<ui::ReportDialog*>() != nullptr; }));
    const QPointer<QDialog> report = Window().findChild<ui::ReportDialog*>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(report));
    EXPECT_EQ(report->findChild<QLabel*>("Summary")->text(), "0 addresses, 1 not fetched yet");
    Click("Search");
    const QPointer<QDialog> search = Window().findChild<ui::SearchDialog*>();
    ASSERT_NE(search, nullptr);
    EXPECT_FALSE(Window().Command1Enabled()) << "the crawl goes on";
    holder.Reload();
    QTest::qWait(50);
    EXPECT_EQ(report, nullptr) << "it is destroyed with its window";
    EXPECT_EQ(search, nullptr);
}

TEST_F(WindowStrip, OpensTheCopyOnceThereIsOne) {
    pages = {{"/", "<a href=\"b.html\">b</a>"}};
    Open();
    const auto press = [&] {
        QTest::keyClick(&Window(), Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    };
    press();
    EXPECT_FALSE(The<QWidget>("OpenCopy").isEnabled());
    StartByKeys("site.com");
    ASSERT_TRUE(WaitFor([&] { return The<QWidget>("OpenCopy").isEnabled(); }));
    EXPECT_FALSE(The<QWidget>("StripOpenCopy").isVisible())
        << "the line is about the running crawl";
    bas_Connections::SiteComplete();
    const QSize roomy = Window().size();
    Window().resize(150, 600);
    EXPECT_FALSE(The<QWidget>("StripOpenCopy").isVisible()) << "the text needs the room";
    EXPECT_FALSE(The<QWidget>("OpenCopy").isVisible());
    press();
    Window().resize(roomy);
    Click("StripOpenCopy");
    Click("OpenCopy");
    const std::string page = "C:\\Websites\\site.com\\index.html";
    EXPECT_EQ(system.processes.files, std::vector<std::string>(3, page));

    The<QWidget>("StripOpenCopy").setFocus();
    bas_Connections::ConnectNowNow();
    EXPECT_EQ(Window().focusWidget(), &The<QWidget>("List1")) << "not the stop button";
    bas_Connections::StopNOW();
    system.files.files.clear();
    press();
    EXPECT_FALSE(The<QWidget>("OpenCopy").isEnabled());
    EXPECT_EQ(system.processes.files.size(), 3U);
}

TEST_F(WindowStrip, NoCaptionIsShownWithoutItsNumber) {
    Open();
    for (const int width : {900, 400, 150}) {
        Window().resize(width, 600);
        EXPECT_EQ(The<QLabel>("Label1").isVisible(), The<QLabel>("Label5").isVisible()) << width;
    }
}
