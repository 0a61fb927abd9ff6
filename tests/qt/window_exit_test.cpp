#include <QLabel>
#include <QTimer>

#include "tests/qt/window_bench.h"

using platform::BoxAnswer;

/// The end of the window, by its own commands and from outside.
using WindowExit = bench::WindowTest;

TEST_F(WindowExit, AnnouncesTheCleanUpBeforeItStarts) {
    pages = {{"/", "<a href='b.html'> <a href='c.html'> <a href='d.html'>"}};
    const auto open_sockets = [this] {
        int open = 0;
        for (int i = 1; i <= crawl::kSlotCount; ++i)
            open += Window().Sock(i).State() == platform::SocketState::Closed ? 0 : 1;
        return open;
    };
    for (const auto& [how, site] : {std::pair("Command2", "site.com"), {"mnuexit", "other.com"}}) {
        SCOPED_TRACE(how);
        Open();
        Window().ChooseConnections(1);
        StartByKeys(site);
        ASSERT_TRUE(WaitFor([&] { return open_sockets() == 1 && crawl::List1.Count() == 2; }));

        std::string shown;
        int sockets = 0;
        system.files.on_sweep = [&] {
            if (shown.empty()) sockets = open_sockets();
            if (shown.empty()) shown = The<QLabel>("Progress").text().toStdString();
        };
        // The next tick of the scheduler would start another file.
        system.boxes.while_open = [this] { Window().ChooseConnections(2); };
        system.boxes.answers = {BoxAnswer::Yes};
        auto* const button = Window().findChild<QPushButton*>(how);
        button != nullptr ? button->click() : Choose(how);
        EXPECT_EQ(shown, "Cleaning up...");
        EXPECT_EQ(sockets, 1) << "the crawl stands still meanwhile";
        system.files.on_sweep = nullptr;
        system.boxes.while_open = nullptr;
    }
}

TEST_F(WindowExit, EndsWithoutAQuestionWhateverIsOpen) {
    QApplication::setQuitOnLastWindowClosed(false);
    Open();
    StartByKeys("silent.com");
    QTimer::singleShot(0, [this] {
        QTimer::singleShot(0, [this] { holder.Exit(143); });
        Choose("mnupause");
    });
    EXPECT_EQ(QCoreApplication::exec(), 143);
    EXPECT_FALSE(Window().isVisible());
    EXPECT_TRUE(Window().Command1Enabled()) << "the crawl was stopped";
    EXPECT_TRUE(system.boxes.asked.empty());
}
