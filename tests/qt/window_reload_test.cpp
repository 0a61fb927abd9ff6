#include <QLabel>
#include <QPointer>
#include <QTimer>

#include "setup/settings.h"
#include "tests/qt/window_bench.h"

using platform::BoxAnswer;

/// The replacement of the window at a stop, and the wizard that opens by itself.
using WindowReload = bench::WindowTest;

TEST_F(WindowReload, AStopMakesANewWindowAndThenOpensTheWizard) {
    Open();
    StartByKeys("silent.com");
    Window().setGeometry(30, 40, 700, 600);
    const QRect place = Window().geometry();
    const QPointer<ui::frmMain> old(&Window());
    QString status_in_wizard;
    in_wizard = [&] { status_in_wizard = The<QLabel>("Label6").text(); };

    system.boxes.answers = {BoxAnswer::Yes};
    Click("Command2");
    ASSERT_NE(&Window(), old.data());
    EXPECT_EQ(wizards, 1);

    ASSERT_TRUE(WaitFor([&] { return wizards == 2 && old.isNull(); }));
    EXPECT_EQ(status_in_wizard, "Operation Cancelled.");
    EXPECT_FALSE(crawl::Stopping);
    EXPECT_EQ(Window().geometry(), place);
    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(crawl::List1.on_change && crawl::List2.on_change) << "the new lists are connected";
}

TEST_F(WindowReload, ClosesEveryConnection) {
    for (int i = 0; i < crawl::kSlotCount; ++i)
        pages["/"] += "<a href=silent" + std::to_string(i) + ".html>";
    Open();
    Window().ChooseConnections(crawl::kSlotCount);
    StartByKeys("site.com");
    const platform::Socket& last = Window().Sock(crawl::kSlotCount);
    ASSERT_TRUE(WaitFor([&] { return last.State() == platform::SocketState::Connected; }));
    holder.Reload();
    EXPECT_EQ(last.State(), platform::SocketState::Closed);
}

TEST_F(WindowReload, OpensOneWizardAtTheStartAndForANewSite) {
    in_wizard = [this] {
        holder.Activated();
        holder.OpenWizard();
        QTest::qWait(50);
    };
    Open();
    EXPECT_EQ(wizards, 1);
    StartByKeys("silent.com");
    system.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Choose("mnunew");
    QTest::qWait(100);
    EXPECT_EQ(wizards, 1) << "the crawl goes on";
    Choose("mnunew");
    QTest::qWait(100);
    EXPECT_EQ(wizards, 2);
    EXPECT_FALSE(crawl::Stopping);
}

TEST_F(WindowReload, ClosesThePauseDialogOfTheOldWindow) {
    Open();
    StartByKeys("silent.com");
    const QPointer<ui::frmMain> old(&Window());
    // Posted to the program's loop, in which the dialog's loop runs and keeps the old window.
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] {
            holder.Reload();
            QTest::qWait(50);
        });
        Choose("mnupause");
        EXPECT_FALSE(old.isNull()) << "its handler is still running";
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    EXPECT_TRUE(WaitFor([&] { return old.isNull(); }));
    EXPECT_FALSE(Window().tmrMove().Enabled());
}

/// Clicks the stop button while events run during the work on a page, after each write in a crawl
/// of three pages.
TEST_F(WindowReload, AStopDuringAnyWorkLeavesNothingOfTheOldWindowInUse) {
    pages = {{"/", "<a href=\"b.html\"> <a href=\"c.html\"> <a href=\"d.iso\">"},
             {"/b.html", "<a href=\"c.html\">"},
             {"/c.html", "c"}};
    Open();
    int nested_stops = 0;
    system.boxes.while_open = [&] { nested_stops += events.Depth() > 0 ? 1 : 0; };
    for (int stop_at = 1; system.processes.folders.empty(); ++stop_at) {
        SCOPED_TRACE(testing::Message() << "stopped after write " << stop_at);
        const QPointer<ui::frmMain> old(&Window());
        QObject::connect(old, &QObject::destroyed, [this] { EXPECT_EQ(events.Depth(), 0); });
        const int wizards_before = wizards;
        int writes = 0;
        system.boxes.answers = {BoxAnswer::Yes};
        bas_General::PrepareTargetFolder("c:\\mirror" + std::to_string(stop_at) + "\\");
        system.files.on_write = [&](const std::string&) {
            if (++writes != stop_at) return;
            QTimer::singleShot(0, [this] {
                Click("Command2");
                QTest::qWait(20);  // an unloaded window outlives even this
            });
        };
        StartByKeys("site.com");
        // In the last round the crawl ends before it can be stopped, and opens its folder.
        ASSERT_TRUE(WaitFor([&] { return old.isNull() || !system.processes.folders.empty(); }));
        system.files.on_write = nullptr;
        if (!system.processes.folders.empty()) break;
        EXPECT_EQ(The<QLabel>("Label6").text(), "Operation Cancelled.");
        ASSERT_TRUE(WaitFor([&] { return wizards == wizards_before + 1; }));
        EXPECT_TRUE(Window().Command1Enabled());
        EXPECT_FALSE(Window().tmrMove().Enabled());
    }
    EXPECT_GT(nested_stops, 0) << "no stop came inside a handler";
}
