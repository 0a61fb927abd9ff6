#include <QAbstractItemView>
#include <QAccessible>
#include <QCompleter>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QTimer>
#include <QWheelEvent>

#include "engine/endings.h"
#include "setup/keyword_filters.h"
#include "setup/recent_addresses.h"
#include "setup/settings.h"
#include "tests/fakes/temp_folder.h"
#include "tests/qt/drop.h"
#include "tests/qt/window_bench.h"
#include "ui/address_list.h"
#include "ui/connection_panel.h"
#include "ui/rate_graph.h"
#include "widgets/contrast.h"
#include "widgets/elided_label.h"
#include "widgets/link_button.h"

using platform::BoxAnswer;
using Texts = std::vector<std::string>;

using MainWindow = bench::WindowTest;

TEST_F(MainWindow, HasItsControlsAsDesigned) {
    crawl::List1.AddItem("left over");
    system.files.Have("c:\\program\\filters.txt", "ads\r\n");
    Open();
    EXPECT_EQ(bas_General::KeywordFilters[1], "ads");
    EXPECT_EQ(Window().windowTitle(), "Vantorin Website Downloader 1.9");
    const std::pair<const char*, const char*> captions[] = {
        {"Label3", "0 Files"}, {"Label4", "0 Bytes"}, {"l24", "Not Connected."}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(The<QLabel>(name).text(), caption);
    EXPECT_TRUE(Window().Command1Enabled());
    EXPECT_FALSE(The<QPushButton>("Command2").isEnabled());
    EXPECT_EQ(The<QComboBox>("txtMax").itemText(23), "24");
    EXPECT_EQ(Window().TxtMax(), "4");

    EXPECT_TRUE(system.files.FolderExists("c:\\program\\dldata"));
    EXPECT_EQ(Window().tmrMove().Interval(), 20);
    EXPECT_EQ(Window().tmrOut(24).Interval(), 20000);
    EXPECT_TRUE(crawl::List1.Empty());
}

TEST_F(MainWindow, HasItsMenu) {
    Open();
    Texts entries;
    for (const QAction* heading : Window().menuBar()->actions()) {
        entries.push_back(heading->text().toStdString());
        for (const QAction* entry : heading->menu()->actions())
            entries.push_back(entry->isSeparator() ? "-" : entry->text().toStdString());
    }
    const Texts expected = {"&File",  "&New Site",       "-",     "&Exit Vantorin",
                            "&Sites", "Pause Download",  "-",     "&Explore...",
                            "-",      "&Preferences...", "&Help", "&About"};
    EXPECT_EQ(entries, expected);
    Choose("mnuabout");
    EXPECT_EQ(system.boxes.asked.back().message, "Vantorin Website Downloader 1.9");
}

TEST_F(MainWindow, LaysItselfOutAtEverySize) {
    Open();
    const QWidget& client = The<QWidget>("Client");
    const auto& panel = The<ui::ConnectionPanel>("Picture1");
    const QWidget& queue = The<QWidget>("List1");
    const QWidget& address = The<QWidget>("Text1");
    const QWidget& light = The<QWidget>("Picture2");
    const QWidget& connections = The<QWidget>("txtMax");
    const QWidget& other_links = The<QWidget>("OtherLinks");
    for (const QSize& size : {QSize(820, 760), QSize(1900, 1400), QSize(500, 400), QSize(120, 80),
                              QSize(60, 400), QSize(700, 60), QSize(820, 760)}) {
        const int last_queue_height = queue.height();
        const int last_address_width = address.width();
        Window().resize(size);
        QCoreApplication::processEvents();
        const int w = client.width();
        const int h = client.height();
        SCOPED_TRACE(testing::Message() << w << " by " << h << " pixels");
        EXPECT_EQ(panel.width(), w - 32);
        EXPECT_EQ(queue.width(), w - 24);
        EXPECT_EQ(connections.x(), w - connections.width() - 24);
        const int queue_height = h - 184 - panel.height();
        EXPECT_EQ(queue.height(), queue_height >= 0 ? queue_height : last_queue_height);
        const int address_width = w - light.width() - 96;
        EXPECT_EQ(address.width(), address_width >= 0 ? address_width : last_address_width);
        EXPECT_EQ(other_links.geometry().right(), queue.geometry().right());
        EXPECT_EQ(light.x(), address.geometry().right() + 1 + 8);
        EXPECT_EQ(The<QLabel>("Label6").y(), queue.geometry().bottom() + 1 + 3);
        EXPECT_EQ(panel.height() == panel.FullHeight(), h > 650);
        EXPECT_EQ(panel.height() == panel.LeastHeight(), h < 400);
    }
    Window().resize(1, 1);
    EXPECT_EQ(Window().size(), QSize(1, 1)) << "it has no minimum size";
}

TEST_F(MainWindow, RefusesTypedConnectionCountsButNotChosenOnes) {
    Open();
    auto& count = The<QComboBox>("txtMax");
    count.setFocus();
    const auto type = [&](const char* text) {
        count.lineEdit()->selectAll();
        QTest::keyClicks(count.lineEdit(), text);
    };
    type("24");
    EXPECT_EQ(Window().TxtMax(), "4");
    EXPECT_EQ(count.lineEdit()->selectedText(), "4") << "the next key replaces it";
    EXPECT_EQ(system.boxes.asked.size(), 1U);
    Window().ChooseConnections(23);
    QTest::keyClick(&count, Qt::Key_Down);
    EXPECT_EQ(Window().TxtMax(), "24");
    type("12");
    QTest::keyClick(&count, Qt::Key_Down);
    EXPECT_EQ(Window().TxtMax(), "13") << "a step continues from the typed value";

    // Only choosing a count clears the rows beyond it.
    Window().SetRowStatus(5, "Downloading");
    type("3");
    The<QPushButton>("Command4").setFocus();  // leaving the box does not choose
    EXPECT_EQ(The<QLabel>("l5").text(), "Downloading");
    Window().ChooseConnections(4);
    EXPECT_EQ(The<QLabel>("l5").text(), "Not Connected.");
    EXPECT_EQ(system.boxes.asked.size(), 1U);
}

TEST_F(MainWindow, CrawlsTheAddressTypedIntoTheStoredFolder) {
    bas_General::PutSetting("InDir", "C:\\mirror");
    pages = {{"/", "<a href=\"b.html\">b</a> <a href=\"c.iso\">c</a>"}, {"/b.html", "b"}};
    Open();
    system.boxes.answers = {BoxAnswer::Yes};
    StartByKeys("site.com");
    EXPECT_FALSE(Window().Command1Enabled());
    EXPECT_EQ(The<QWidget>("Picture2").accessibleName(), "Downloading");
    EXPECT_EQ(The<QLabel>("Label6").text(), "Downloading Site [www.site.com]");
    ASSERT_TRUE(WaitFor([&] { return !system.processes.folders.empty(); }));

    EXPECT_EQ(system.boxes.asked.back().title, "Done.");
    EXPECT_EQ(system.processes.folders[0], "C:\\mirror\\");
    EXPECT_EQ(system.files.At("C:\\mirror\\site.com\\b.html"), "b\r\n");
    EXPECT_EQ(The<QLabel>("Label3").text(), "2 Files");
    EXPECT_EQ(The<QLabel>("Label4").text(), "83 Bytes");
    EXPECT_EQ(The<QLabel>("Label6").text(), "Website Downloaded!");
    EXPECT_EQ(The<QWidget>("Picture2").accessibleName(), "Idle");
    EXPECT_EQ(The<QLabel>("Progress").text(), "2 files saved");
    EXPECT_EQ(The<QLineEdit>("Text1").selectedText(), "www.site.com");

    EXPECT_EQ(crawl::List2.Count(), 1U);
    EXPECT_TRUE(The<QWidget>("List2").isHidden());
    EXPECT_TRUE(WaitFor(
        [&] { return The<QAbstractButton>("OtherLinks").text() == "Show Other Links (1)"; }));
    EXPECT_NE(The<QAbstractButton>("OtherLinks").toolTip(), "");
    Click("OtherLinks");
    EXPECT_TRUE(The<QWidget>("List2").isVisible());

    pages.clear();
    StartByKeys("other.com");
    EXPECT_TRUE(crawl::List2.Empty()) << "the links of the previous site";
}

TEST_F(MainWindow, ShowsTheProgressAndTheNextAddress) {
    pages = {{"/", "<a href=\"b.html\">b</a> <a href=\"c.html\">c</a>"}, {"/b.html", "b"}};
    Open();
    EXPECT_TRUE(The<QWidget>("ProgressBar").isHidden());
    Window().ChooseConnections(1);
    StartByKeys("site.com");  // its c.html is requested first and never answered
    const auto progress = [&] { return The<QLabel>("Progress").text(); };
    ASSERT_TRUE(WaitFor([&] { return progress() == "1 file saved, 2 to go"; }));
    EXPECT_EQ(The<QProgressBar>("ProgressBar").value(), 333);
    ASSERT_TRUE(WaitFor([&] { return The<QLabel>("Next").text() == "Next: www.site.com/b.html"; }));

    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] {
            EXPECT_EQ(progress(), "Paused: no new files start. 1 file saved, 2 to go");
            EXPECT_EQ(The<QWidget>("Picture2").accessibleName(), "Paused");
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        });
        Choose("mnupause");
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    EXPECT_EQ(progress(), "1 file saved, 2 to go");
}

TEST_F(MainWindow, APauseEndsWithTheSite) {
    Open();
    StartByKeys("silent.com");
    bool paused_behind_the_box = true;
    system.boxes.while_open = [&] {
        paused_behind_the_box = QApplication::activeModalWidget() != nullptr;
    };
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [] { bas_Connections::SiteComplete(); });
        Choose("mnupause");
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    EXPECT_EQ(system.boxes.asked.back().title, "Done.");
    EXPECT_EQ(system.boxes.waits, 1) << "no user action caused it";
    EXPECT_FALSE(paused_behind_the_box);
    EXPECT_FALSE(Window().tmrMove().Enabled()) << "no crawl is left to resume";
}

TEST_F(MainWindow, TheFocusMovesToTheListWhenACrawlBegins) {
    Open();
    for (const char* list : {"List1", "List2"}) {
        if (list == std::string("List2")) Click("OtherLinks");
        for (const char* start : {"Text1", "Command1"}) {
            The<QWidget>(start).setFocus();
            QTest::keyClick(&The<QWidget>(start),
                            start == std::string("Text1") ? Qt::Key_Return : Qt::Key_Space);
            ASSERT_FALSE(Window().Command1Enabled());
            EXPECT_EQ(Window().focusWidget(), &The<QWidget>(list)) << start;
            bas_Connections::StopNOW();
        }
    }
}

TEST_F(MainWindow, AsksBeforeTwoCrawlsFillOneFolder) {
    Open();
    crawl::TargetFolder = "c:\\mine\\";
    for (const bool taken : {true, false}) {
        if (taken) system.files.claimed->insert("c:\\mine");
        StartByKeys("site.com");
        EXPECT_EQ(Window().Command1Enabled(), taken) << "nobody has answered Yes";
        ASSERT_EQ(system.boxes.asked.size(), 1U);
        EXPECT_EQ(system.boxes.asked[0].title, "Folder in Use");
        if (taken) system.files.claimed->clear();
    }
    EXPECT_EQ(system.files.claimed->size(), 1U);
    bas_Connections::StopNOW();
    EXPECT_TRUE(system.files.claimed->empty());
}

TEST_F(MainWindow, SaysWhenNoFileWasSaved) {
    pages = {{"/", "a"}};
    Open();
    StartByKeys("site.com");
    ASSERT_TRUE(WaitFor([&] { return !system.boxes.asked.empty(); }));
    EXPECT_EQ(The<QLabel>("Progress").text(), "1 file saved");

    pages.clear();
    StartByKeys("silent.com");
    for (int i = 1; i <= crawl::kSlotCount; ++i)
        Window().tmrOut(i).SetInterval(1);
    ASSERT_TRUE(WaitFor([&] { return system.boxes.asked.size() == 2; }));
    EXPECT_EQ(The<QLabel>("Label6").text(), "Website Downloaded!");
    EXPECT_EQ(The<QLabel>("Progress").text(), "www.silent.com does not answer");
    EXPECT_EQ(The<QProgressBar>("ProgressBar").value(), 0);
}

TEST_F(MainWindow, WarnsOfAnAddressIfThereIsRoom) {
    Open();
    const auto& line = The<QLabel>("Text1Hint");
    EXPECT_FALSE(line.isVisible());
    The<QLineEdit>("Text1").setFocus();
    QTest::keyClicks(&The<QLineEdit>("Text1"), "https://site.com");
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.text(), "This program fetches http:// only");
    EXPECT_EQ(The<QLabel>("Progress").text(), "");

    const QSize roomy = Window().size();
    Window().resize(roomy.width() / 2, roomy.height());
    EXPECT_FALSE(line.isVisible());
    EXPECT_EQ(The<QLabel>("Progress").text(), line.text());

    Window().resize(roomy);
    QTest::keyClick(&The<QLineEdit>("Text1"), Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(WaitFor([&] { return Window().Text1() == "http://site.com"; }));
    EXPECT_EQ(line.text(), "The download starts at http://www.site.com");
    EXPECT_EQ(The<QLabel>("Progress").text(), "");
    QTest::keyClick(&The<QLineEdit>("Text1"), Qt::Key_Return);
    EXPECT_FALSE(line.isVisible()) << "the crawl has started";
}

TEST_F(MainWindow, IsReadableOnLightAndDarkDesktops) {
    const QPalette usual = QApplication::palette();
    const auto expect_readable = [](const char* what, const QColor& text, const QColor& ground) {
        EXPECT_GE(ui::Contrast(text, ground), 4.5) << what;
    };
    for (const bool dark : {false, true}) {
        SCOPED_TRACE(dark ? "dark" : "light");
        QPalette colours = dark ? QPalette(QColor(0x32, 0x30, 0x30)) : QPalette(Qt::lightGray);
        colours.setColor(QPalette::AlternateBase, Qt::gray);  // too strong to read on
        colours.setColor(QPalette::PlaceholderText, Qt::gray);
        Open();
        QApplication::setPalette(colours);
        The<QLineEdit>("Text1").setText("https://site.com");
        const QColor window = Window().palette().color(QPalette::Window);
        for (const char* name : {"x1", "l1", "Label7", "Next", "Text1Hint"}) {
            const auto& label = The<ui::ElidedLabel>(name);
            expect_readable(name, label.TextColour(),
                            label.palette().color(label.backgroundRole()));
        }
        expect_readable("link", The<ui::LinkButton>("Text1HintLink").TextColour(), window);
        The<QLineEdit>("Text1").clear();

        QWidget& rows = *The<QLabel>("l2").parentWidget();
        const QColor stripe = rows.grab().toImage().pixelColor(1, The<QLabel>("l2").y() + 1);
        EXPECT_NE(stripe, rows.palette().color(QPalette::Base));
        expect_readable("stripe", The<ui::ElidedLabel>("l2").TextColour(), stripe);

        const QPalette& box = The<QLineEdit>("Text1").palette();
        const QPalette& menu =
            dynamic_cast<QMenu&>(*The<QAction>("mnupause").associatedObjects().first()).palette();
        expect_readable("placeholder", box.color(QPalette::PlaceholderText),
                        box.color(QPalette::Base));
        expect_readable("disabled box", box.color(QPalette::Disabled, QPalette::Text),
                        box.color(QPalette::Disabled, QPalette::Base));
        expect_readable("disabled entry", menu.color(QPalette::Disabled, QPalette::Text),
                        menu.color(QPalette::Disabled, QPalette::Window));
        QApplication::setPalette(usual);
        holder.Reload();
    }
}

TEST_F(MainWindow, TellsItsConnectionsToAScreenReader) {
    Open();
    Window().SetRowStatus(3, "Downloading www.site.com/a");
    Window().SetRowReceived(3, "12.0 KB");
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(&The<QLabel>("l3"));
    EXPECT_EQ(row->text(QAccessible::Name), "Connection 3: Downloading www.site.com/a, 12.0 KB");

    QAccessibleInterface* count = QAccessible::queryAccessibleInterface(&The<QComboBox>("txtMax"));
    EXPECT_EQ(count->role(), QAccessible::ComboBox);
    EXPECT_EQ(count->text(QAccessible::Name), "How many connections?");
    EXPECT_EQ(count->text(QAccessible::Value), "4");
    ASSERT_EQ(count->childCount(), 2);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(count->indexOfChild(count->child(i)), i);
    EXPECT_EQ(count->child(1)->text(QAccessible::Name), "How many connections?");
    count->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(count->state().expanded);
    count->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(count->state().expanded);
}

TEST_F(MainWindow, KeepsTheTypedAddressWhenTheWindowComesBack) {
    Open();
    auto& address = The<QLineEdit>("Text1");
    address.setFocus();
    QTest::keyClicks(&address, "site");
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    QTest::keyClicks(&address, ".com");
    EXPECT_EQ(address.text(), "site.com");
    The<QPushButton>("Command4").setFocus();
    QTest::keyClick(&The<QPushButton>("Command4"), Qt::Key_Backtab);
    QTest::keyClick(&The<QPushButton>("Command3"), Qt::Key_Backtab);
    QTest::keyClick(&The<QPushButton>("Command1"), Qt::Key_Backtab);
    EXPECT_EQ(address.selectedText(), "site.com");
}

TEST_F(MainWindow, TheWheelChangesTheConnectionsOnlyWithTheFocus) {
    Open();
    auto& count = The<QComboBox>("txtMax");
    EXPECT_FALSE(count.lineEdit()->hasSelectedText()) << "it must not look focused";
    for (const bool focused : {false, true}) {
        if (focused) {
            count.setFocus();
            count.lineEdit()->setText("12");
        }
        const QPointF place = QRectF(count.rect()).center();
        QWheelEvent wheel(place, count.mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&count, &wheel);
        EXPECT_EQ(Window().TxtMax(), focused ? "13" : "4");
        EXPECT_EQ(count.hasFocus(), focused);
    }
    count.lineEdit()->setText("20");
    count.showPopup();
    EXPECT_EQ(count.view()->currentIndex().data().toString(), "20");
    count.hidePopup();
}

TEST_F(MainWindow, StartsNothingInAFolderThatCannotBeWritten) {
    system.files.refused = {"c:\\Websites"};
    Open();
    StartByKeys("site.com");
    ASSERT_EQ(system.boxes.asked.size(), 1U);
    EXPECT_EQ(system.boxes.asked[0].title, "Eror");
    EXPECT_TRUE(Window().Command1Enabled());
    EXPECT_EQ(crawl::TargetFolder, "") << "the next start tries again";
}

TEST_F(MainWindow, ExploresTheTargetAndOpensQueuedAddresses) {
    Open();
    Choose("mnuexplore");
    crawl::TargetFolder = "c:\\mine\\";
    Click("Command4");
    EXPECT_EQ(system.processes.folders, (Texts{"C:\\Websites\\", "c:\\mine\\"}));

    const auto shows = [this](const ui::AddressList& list, int rows) {
        return WaitFor([&] { return list.model()->rowCount() == rows; });
    };
    auto& queue = The<ui::AddressList>("List1");
    emit queue.Activated();
    for (const char* item : {"www.site.com/a", "HTTP://site.com/b", " www.site.com/c "}) {
        crawl::List1.AddItem(item);
        ASSERT_TRUE(shows(queue, int(crawl::List1.Count())));
        QTest::keyClick(&queue, Qt::Key_End);
        QTest::keyClick(&queue, Qt::Key_Return);
    }
    EXPECT_EQ(system.processes.addresses,
              (Texts{"http://www.site.com/a", "HTTP://site.com/b", "http://www.site.com/c"}));

    Click("OtherLinks");
    crawl::List2.AddItem("site.com/d.iso");
    auto& other_links = The<ui::AddressList>("List2");
    ASSERT_TRUE(shows(other_links, 1));
    other_links.selectRow(0);
    other_links.findChild<QAction*>("OpenAddress")->trigger();
    EXPECT_EQ(system.processes.addresses.back(), "http://site.com/d.iso");
}

TEST_F(MainWindow, MakesFiltersFileTypesAndFilesFromAddresses) {
    Open();
    Click("OtherLinks");
    auto& other_links = The<ui::AddressList>("List2");
    for (const char* item : {"site.com/ads/a.WAV", "site.com/ads/b.iso"})
        crawl::List2.AddItem(item);
    ASSERT_TRUE(WaitFor([&] { return other_links.model()->rowCount() == 2; }));
    const auto choose = [&](const char* entry) {
        other_links.findChild<QAction*>(entry)->trigger();
    };
    other_links.selectRow(0);
    choose("AddFilter");
    auto* keyword = Window().findChild<QDialog*>("zFilter")->findChild<QLineEdit*>("Text1");
    EXPECT_EQ(keyword->selectedText(), "site.com/ads/a.WAV");
    QTest::keyClicks(keyword, "/ads/");
    QTest::keyClick(keyword, Qt::Key_Return);
    QTest::keyClick(keyword, Qt::Key_Escape);
    EXPECT_EQ(system.files.At("c:\\program\\filters.txt"), "/ADS/\r\n");

    other_links.selectAll();
    choose("GetType");
    EXPECT_EQ(system.boxes.asked.back().message,
              "The next download will get files of this type, too: .iso .wav");
    EXPECT_EQ(system.files.At("c:\\program\\temp\\filetypes.txt"), ".html\r\n.iso\r\n.wav\r\n");

    const fakes::TempFolder folder;  // the dialog checks that it exists
    system.files.Have(folder.Text());
    for (const bool writable : {false, true}) {
        system.files.disk_full = !writable;
        choose("SaveList");
        auto* dialog = Window().findChild<QFileDialog*>("SaveText");
        auto* name = dialog->findChild<QLineEdit*>();
        name->setText(QString::fromStdString((folder.SystemPath() / "links.txt").string()));
        QTest::keyClick(name, Qt::Key_Return);
        ASSERT_TRUE(
            WaitFor([&] { return Window().findChild<QFileDialog*>("SaveText") == nullptr; }));
        EXPECT_EQ(system.files.At(folder.Text() + "\\links.txt"),
                  writable ? "site.com/ads/a.WAV\r\nsite.com/ads/b.iso\r\n" : "(none)");
        EXPECT_EQ(system.boxes.asked.back().title, "Save") << "the question of the first time";
    }
}

TEST_F(MainWindow, OffersAddressesUsedBefore) {
    bas_General::NoteAddress("www.first.test/docs/");
    Open();
    auto& address = The<QLineEdit>("Text1");
    address.clearFocus();
    address.setFocus();
    QTest::keyClicks(&address, "fir");
    QAbstractItemView* offers = address.completer()->popup();
    ASSERT_TRUE(offers->isVisible());
    QTest::keyClick(offers, Qt::Key_Down);
    QTest::keyClick(offers, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(Window().Text1(), "www.first.test/docs/");
    EXPECT_TRUE(Window().Command1Enabled()) << "this Enter only completes";
    QTest::keyClick(&address, Qt::Key_Return);
    EXPECT_FALSE(Window().Command1Enabled());
    EXPECT_EQ(bas_General::RecentAddresses(), Texts{"www.first.test/docs/"});
}

TEST_F(MainWindow, TakesADroppedLink) {
    Open();
    for (const char* place : {"Text1", "txtMax", "List1"}) {
        EXPECT_TRUE(Drop(The<QWidget>(place), "", QUrl("http://www.b\u00fccher.test/a b")));
        EXPECT_EQ(Window().Text1(), "http://www.xn--bcher-kva.test/a%20b");
        EXPECT_TRUE(Drop(The<QWidget>(place), " www.site.com/x "));
        EXPECT_EQ(Window().Text1(), "www.site.com/x");
    }
    EXPECT_FALSE(Drop(The<QWidget>("Text1"), "two words"));
    EXPECT_FALSE(Drop(The<QWidget>("Text1"), "", QUrl::fromLocalFile("/etc/passwd")));
    QTest::keyClick(&The<QLineEdit>("Text1"), Qt::Key_Return);
    EXPECT_FALSE(Drop(The<QWidget>("Text1"), "www.other.com")) << "while a crawl runs";
    EXPECT_EQ(Window().Text1(), "www.site.com/x");
}

TEST_F(MainWindow, AsksBeforeItCloses) {
    Open();
    StartByKeys("silent.com");
    system.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Choose("mnuexit");
    EXPECT_TRUE(Window().isVisible());
    EXPECT_FALSE(Window().Command1Enabled());

    QApplication::setQuitOnLastWindowClosed(false);          // as in the program
    system.boxes.while_open = [this] { Window().close(); };  // does not ask again
    QTimer::singleShot(0, [this] { Window().close(); });
    EXPECT_EQ(QCoreApplication::exec(), 0) << "the program ends";
    EXPECT_FALSE(Window().isVisible());
    EXPECT_TRUE(Window().Command1Enabled());
    EXPECT_EQ(system.boxes.asked.size(), 2U);
    EXPECT_TRUE(Window().IsRetired());
    Choose("mnunew");
    EXPECT_EQ(wizards, 1) << "a closed window does nothing";
}

TEST_F(MainWindow, DrawsTheRateOfTheLastMinute) {
    Open();
    auto& graph = The<ui::RateGraph>("Picture3");
    const std::pair<int, const char*> samples[] = {{700, ""},
                                                   {1700, "1000 bytes/s"},
                                                   {2200, "500 bytes/s"},
                                                   {2200, "0 bytes/s"},
                                                   {300, "300 bytes/s"}};
    for (const auto& [total, rate] : samples) {
        graph.Sample(total);
        EXPECT_EQ(graph.accessibleDescription(), rate) << total;
    }
}
