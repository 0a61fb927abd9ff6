#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <memory>

#include "forms/frm_new.h"
#include "forms/z_filter.h"
#include "output/mirror_files.h"
#include "setup/file_types.h"
#include "setup/recent_addresses.h"
#include "setup/settings.h"
#include "tests/qt/drop.h"
#include "tests/qt/form_test.h"
#include "widgets/elided_label.h"
#include "widgets/link_button.h"

namespace {

using platform::BoxAnswer;
using platform::BoxStyle;
using Items = std::vector<std::string>;

constexpr char kTypesFile[] = "c:\\program\\temp\\filetypes.txt";

class WizardTest : public FormTest {
  protected:
    ~WizardTest() override {
        wizard.reset();
        RunDeletions();
    }
    void Open() {
        wizard = std::make_unique<ui::frmNew>(nullptr);
        wizard->setModal(true);
        Show(*wizard);
    }
    /// With a list of types on disk, so that this is not the first run, and with the options open.
    void OpenWithTypes(const std::string& file) {
        system.files.Have(kTypesFile, file);
        Open();
        Click("Command6");
    }
    void Click(const char* name) { FormTest::Click(*wizard, name); }
    void AddType(const char* answer) {
        system.boxes.inputs = {answer};
        Click("Command3");
    }
    QLineEdit* TxtUrl() { return Find<QLineEdit>(*wizard, "txtURL"); }
    ui::LinkButton* AddressLink() { return Find<ui::LinkButton>(*wizard, "AddressHintLink"); }
    QLineEdit* TxtDir() { return Find<QLineEdit>(*wizard, "txtDir"); }
    QComboBox* List2() { return Find<QComboBox>(*wizard, "List2"); }
    Items Types() { return ItemsOf(*wizard, "List1"); }
    std::string Setting(const std::string& key) {
        return system.settings.Get("Vantorin", "Settings", key, "(none)");
    }

    std::unique_ptr<ui::frmNew> wizard;
};

TEST_F(WizardTest, AFirstRunShowsTheDefaults) {
    Open();
    EXPECT_EQ(wizard->windowTitle(), "New Site Wizard");
    EXPECT_EQ(TxtUrl()->text(), "http://");
    EXPECT_EQ(TxtDir()->text(), "C:\\Websites\\");
    EXPECT_EQ(Setting("LastURL"), "http://");
    EXPECT_EQ(Setting("InDir"), "C:\\Websites\\");
    EXPECT_EQ(Setting("Timeout"), "(none)");
    EXPECT_EQ(List2()->currentText(), "15");

    const std::string defaults = system.files.At(kTypesFile);
    EXPECT_EQ(defaults.size(), 74U);
    Click("Command2");
    EXPECT_EQ(system.files.At(kTypesFile), defaults + defaults);
}

TEST_F(WizardTest, TheBoxesSelectTheirTextAndStoreEveryKey) {
    Open();
    EXPECT_EQ(TxtUrl()->selectedText(), "http://");
    for (QLineEdit* box : {TxtDir(), TxtUrl()}) {
        QTest::mouseClick(wizard->windowHandle(), Qt::LeftButton, {}, box->geometry().center());
        QCoreApplication::processEvents();
        EXPECT_EQ(box->selectedText(), box->text());
        for (const char* stored : {"a", "ab", "ab?"}) {
            QTest::keyClicks(box, QString(stored).right(1));
            EXPECT_EQ(Setting(box == TxtDir() ? "InDir" : "LastURL"), stored);
        }
    }
}

TEST_F(WizardTest, OptionsGrowAndShrinkAboutTheCentre) {
    Open();
    wizard->move(200, 100);
    for (const bool expanded : {false, true, false}) {
        EXPECT_EQ(wizard->width(), expanded ? 648 : 457);
        EXPECT_EQ(wizard->x(), expanded ? 104 : 200);  // 1432.5 twips, rounded up
        EXPECT_EQ(Find<QPushButton>(*wizard, "Command6")->text().right(2), expanded ? "<<" : ">>");
        Click("Command6");
    }
}

TEST_F(WizardTest, AValidFolderSavesTheTypesAndCloses) {
    system.files.Have("c:\\locked");
    system.files.read_only = {"c:\\locked"};
    const struct {
        const char* typed;
        const char* folder;
        bool accepted;
    } cases[] = {{"C:/sites/a&b?c", "C:\\sites\\a_b_c\\", true},
                 {"C:\\new\\.\\dir", "C:\\new\\.\\dir\\", true},
                 {"D:/sites/abc", "D:\\sites\\abc\\", false},  // no such drive here
                 {"", "\\", true},
                 {"  ", "  \\", false},  // no folder with this name is ever created
                 {"C:\\locked", "C:\\locked\\", false}};
    for (const auto& c : cases) {
        for (const std::string button : {"Command1", "Command2"}) {
            SCOPED_TRACE(button + " with " + c.typed);
            window.text1 = crawl::FileTypeSet = "";
            window.tmrOut(1).SetInterval(1);
            OpenWithTypes(".old\r\n");
            AddType("new");
            Retype(TxtUrl(), "http://site.com/a");
            Retype(TxtDir(), c.typed);
            Click(button.c_str());
            EXPECT_EQ(platform::ToBytes(TxtDir()->text()), c.folder);
            EXPECT_EQ(Setting("InDir"), c.folder);
            EXPECT_EQ(crawl::TargetFolder, c.folder);
            EXPECT_EQ(wizard->isVisible(), !c.accepted);
            EXPECT_EQ(window.tmrOut(1).Interval(), c.accepted ? 15'000 : 1);
            EXPECT_EQ(system.files.At(kTypesFile), c.accepted ? ".old\r\n.new\r\n" : ".old\r\n");
            const bool starts = c.accepted && button == "Command1";
            EXPECT_EQ(window.text1, starts ? "www.site.com/a" : "");
            EXPECT_EQ(crawl::FileTypeSet, starts ? ":.old::.new:" : "");
            EXPECT_FALSE(system.files.FileLength(std::string(c.folder) + "test23893.txt"));
            if (c.accepted) continue;
            ExpectAsked("That is an invalid directory. Check it has no invalid characters.",
                        BoxStyle::Stop, "Eror");
        }
    }
}

TEST_F(WizardTest, EscapeAppliesOnlyTheTimeout) {
    const std::pair<const char*, std::int64_t> intervals[] = {
        {" 12 sec", 12'000}, {"abc", 0}, {"", 7}, {"0.0025", 2}, {"-1", 7}, {"2147484", 7}};
    for (const auto& [typed, interval] : intervals) {
        window.tmrOut(24).SetInterval(7);
        OpenWithTypes(".old\r\n");
        AddType("new");
        Retype(List2(), typed);
        QTest::keyClick(wizard.get(), Qt::Key_Escape);
        EXPECT_FALSE(wizard->isVisible());
        EXPECT_EQ(system.files.At(kTypesFile), ".old\r\n");
        EXPECT_EQ(Setting("Timeout"), platform::ToBytes(QString(typed).trimmed()));
        EXPECT_EQ(window.tmrOut(24).Interval(), interval) << typed;
    }
}

TEST_F(WizardTest, AddsFileTypes) {
    OpenWithTypes(".htm\r\n");
    for (const char* answer : {"HTML", " .Jpeg ", "abcde", ".abcd", ".abcde", "   ", ".htm"})
        AddType(answer);
    EXPECT_EQ(Types(), (Items{".htm", ".html", ".jpeg", ".abcd", ".htm"}));
    EXPECT_EQ(system.boxes.asked.size(), 2U);
    ExpectAsked("That file extension is too long! (max 4 characters)", BoxStyle::Information,
                "Error");
    EXPECT_EQ(system.boxes.inputs_asked.front(),
              std::pair(std::string("Enter a file extension (e.g. .html)"), std::string()));
}

TEST_F(WizardTest, DeletesTheSelectedFileType) {
    OpenWithTypes(".htm\r\n .gif \r\n.css\r\n");
    auto* types = Find<QListWidget>(*wizard, "List1");
    types->setCurrentRow(1);
    system.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Click("Command4");
    ExpectAsked("Are you sure you want to remove this list item?\r\n\r\n .gif ",
                BoxStyle::InformationYesNo, "Delete");
    EXPECT_EQ(types->count(), 3);
    QTest::keyClick(types, Qt::Key_Delete);
    // Nothing is selected now, so a second click does not delete the next one.
    Click("Command4");
    ExpectAsked("You must select a list item to delete.", BoxStyle::Information, "Error");
    EXPECT_EQ(Types(), (Items{".htm", ".css"}));
}

TEST_F(WizardTest, SetDefaultAsksAndSavesAtOnce) {
    OpenWithTypes(".old\r\n");
    system.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Click("Command5");
    EXPECT_EQ(Types(), (Items{".old"}));
    ExpectAsked("Are you sure you want to set the file types list to default?",
                BoxStyle::InformationYesNo, "Default");
    Click("Command5");
    EXPECT_EQ(Types(), bas_General::DefaultFileTypes());
    EXPECT_EQ(system.files.At(kTypesFile).size(), 74U);
}

TEST_F(WizardTest, TakesOverTheTypesThatAnotherCopyHasStored) {
    OpenWithTypes(".htm\r\n.gif\r\n");
    AddType(".css");
    system.files.Have(kTypesFile, ".gif\r\n.svg\r\n");
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(wizard.get(), &back);
    EXPECT_EQ(Types(), (Items{".gif", ".css", ".svg"}));
    Click("Command2");
    EXPECT_EQ(system.files.At(kTypesFile), ".gif\r\n.css\r\n.svg\r\n");
}

TEST_F(WizardTest, AsksBeforeTwoCrawlsFillOneFolder) {
    system.files.claimed->insert("c:\\Websites");
    for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        OpenWithTypes(".old\r\n");
        AddType("new");
        Retype(TxtUrl(), "http://site.com/a");
        system.boxes.answers = {answer};
        Click("Command1");
        ExpectAsked(
            "Another download is saving into this folder. Each would change the other's "
            "files.\r\n\r\nWould you like to save this one there anyway?",
            BoxStyle::StopYesNo, "Folder in Use");
        const bool yes = answer == BoxAnswer::Yes;
        EXPECT_EQ(wizard->isVisible(), !yes);
        EXPECT_EQ(window.text1, yes ? "www.site.com/a" : "");
        EXPECT_EQ(system.files.At(kTypesFile), yes ? ".old\r\n.new\r\n" : ".old\r\n");
    }
    Open();
    Click("Command2");  // starts nothing
    EXPECT_EQ(system.boxes.asked.size(), 2U);
}

TEST_F(WizardTest, KeysSelectTheOnlyItemOfAList) {
    OpenWithTypes(".htm\r\n");
    auto* types = Find<QListWidget>(*wizard, "List1");
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down}) {
        types->clearSelection();
        QTest::keyClick(types, key);
        EXPECT_EQ(types->selectedItems().size(), 1) << key;
    }
    types->clearSelection();
    QTest::keyClick(Find<QPushButton>(*wizard, "Command6"), Qt::Key_Tab);
    EXPECT_TRUE(types->hasFocus());
    system.boxes.answers = {BoxAnswer::Yes};
    QTest::keyClick(types, Qt::Key_Delete);
    EXPECT_EQ(types->count(), 0);
}

TEST_F(WizardTest, SaysWhereTheDownloadStarts) {
    Open();
    const std::pair<const char*, const char*> hints[] = {
        {"http://", "Enter the address of a web site."},
        {" http://Site.com/a", "The download starts at http://www.Site.com/a"},
        {"file:///a", "This program fetches http:// only"}};
    for (const auto& [typed, hint] : hints) {
        Retype(TxtUrl(), typed);
        EXPECT_EQ(Find<QLabel>(*wizard, "AddressHint")->text(), hint);
        EXPECT_EQ(TxtUrl()->accessibleDescription(), hint) << "for screen readers";
        EXPECT_TRUE(AddressLink()->isHidden());
    }
}

TEST_F(WizardTest, WarnsOfAnAddressAndCorrectsItByMouseAndKey) {
    Open();
    const std::function<void()> ways[] = {
        [&] { QTest::mouseClick(AddressLink(), Qt::LeftButton); },
        [&] {
            const QString before = TxtUrl()->text();
            QTest::keyClick(TxtUrl(), Qt::Key_U, Qt::AltModifier);
            EXPECT_TRUE(WaitFor([&] { return TxtUrl()->text() != before; }));
        },
        [&] {
            QTest::keyClick(TxtUrl(), Qt::Key_Tab);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }};
    for (const auto& mend : ways) {
        TxtUrl()->setFocus();
        TxtUrl()->setText("https://b\u00fccher.test/a");
        const auto* hint = Find<ui::ElidedLabel>(*wizard, "AddressHint");
        EXPECT_EQ(hint->text(), "This program fetches http:// only");
        EXPECT_TRUE(hint->IsWarning());
        EXPECT_EQ(AddressLink()->text(), "&Use http:// instead");
        mend();
        EXPECT_EQ(TxtUrl()->text(), "http://b\u00fccher.test/a");
        EXPECT_EQ(AddressLink()->text(), "&Use xn--bcher-kva.test instead");
        EXPECT_TRUE(TxtUrl()->hasFocus());
        mend();
        EXPECT_EQ(Setting("LastURL"), "http://xn--bcher-kva.test/a");
        EXPECT_TRUE(AddressLink()->isHidden());
        EXPECT_TRUE(wizard->isVisible());
    }
}

TEST_F(WizardTest, ShowsAnExistingCopyAndRemovesItsUnfinishedFiles) {
    constexpr char kCopy[] =
        "There is a copy of second.test already (1,337 files): its files will not be fetched again";
    constexpr char kUnfinished[] =
        "56 unfinished files of an interrupted download would be left out";
    const std::string placeholder(bas_Output::kPlaceholderText);
    const std::string site = "c:\\Websites\\second.test\\";
    for (int i = 0; i < 1337; ++i)
        system.files.Have(site + std::to_string(i), "x");
    for (int i = 0; i < 56; ++i)
        system.files.Have(site + "deep\\" + std::to_string(i) + ".tmp", placeholder);
    system.files.Have("c:\\Websites\\other.test\\x.tmp", placeholder);
    Open();
    const auto* copy = Find<QLabel>(*wizard, "CopyNote");
    const auto* unfinished = Find<QLabel>(*wizard, "UnfinishedNote");
    auto* remove = Find<ui::LinkButton>(*wizard, "UnfinishedNoteLink");
    const auto says = [](const QLabel* label, const char* text) {
        return WaitFor([&] { return label->isVisible() && label->text() == text; });
    };
    Retype(TxtUrl(), "http://www.second.test/a/b");
    system.files.claimed->insert("c:\\Websites");  // as if another download were using them
    EXPECT_TRUE(says(copy, kCopy));
    EXPECT_FALSE(unfinished->isVisible());
    system.files.claimed->clear();
    Retype(TxtUrl(), "");
    Retype(TxtUrl(), "second.test");
    EXPECT_TRUE(says(copy, kCopy) && says(unfinished, kUnfinished));
    EXPECT_TRUE(
        wizard->rect().contains(remove->geometry().translated(remove->parentWidget()->pos())));
    EXPECT_GT(remove->x(), unfinished->geometry().right());
    EXPECT_GT(unfinished->mapTo(wizard.get(), QPoint()).y(),
              Find<QWidget>(*wizard, "Command1")->geometry().bottom());

    system.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    QTest::mouseClick(remove, Qt::LeftButton);
    EXPECT_EQ(system.boxes.asked.back().title, "Unfinished Files");
    EXPECT_EQ(unfinished->text(), kUnfinished);
    QTest::keyClick(TxtDir(), Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(WaitFor([&] { return !unfinished->isVisible(); }));
    EXPECT_TRUE(says(copy, kCopy));
    EXPECT_EQ(system.files.At("c:\\Websites\\other.test\\x.tmp"), placeholder);

    Retype(TxtUrl(), "other.test");
    EXPECT_TRUE(says(unfinished, "1 unfinished file of an interrupted download would be left out"));
    EXPECT_EQ(copy->text(), "");
    Retype(TxtDir(), "C:\\elsewhere");
    EXPECT_TRUE(WaitFor([&] { return !unfinished->isVisible(); }));
}

TEST_F(WizardTest, NoDownloadStartsWhileUnfinishedFilesAreRemoved) {
    const std::string placeholder(bas_Output::kPlaceholderText);
    for (int i = 0; i < 2000; ++i)
        system.files.Have("c:\\Websites\\second.test\\" + std::to_string(i) + ".tmp", placeholder);
    Open();
    Retype(TxtUrl(), "second.test");
    auto* remove = Find<ui::LinkButton>(*wizard, "UnfinishedNoteLink");
    ASSERT_TRUE(WaitFor([&] { return remove->isVisible(); }));
    system.boxes.answers = {BoxAnswer::Yes};
    QTest::mouseClick(remove, Qt::LeftButton);
    EXPECT_EQ(system.files.claimed->size(), 1U) << "nor in another copy of the program";
    Click("Command1");
    QTest::keyClick(TxtUrl(), Qt::Key_Return);
    EXPECT_EQ(window.text1, "");
    auto* start = Find<QPushButton>(*wizard, "Command1");
    ASSERT_TRUE(WaitFor([&] { return start->isEnabled(); }));
    EXPECT_EQ(system.files.files.count("c:\\Websites\\second.test\\1999.tmp"), 0U);
    Click("Command1");
    EXPECT_EQ(window.text1, "www.second.test");
}

TEST_F(WizardTest, OffersAddressesUsedBefore) {
    for (const char* address : {"www.old.com/", "www.site.com/docs/", "www.other.com"})
        bas_General::NoteAddress(address);
    Open();
    QAbstractItemView* offers = TxtUrl()->completer()->popup();
    Retype(TxtUrl(), "http://SITE");
    ASSERT_TRUE(offers->isVisible());
    EXPECT_EQ(offers->model()->rowCount(), 1);
    QTest::mouseClick(offers->viewport(), Qt::LeftButton, {},
                      offers->visualRect(offers->model()->index(0, 0)).center());
    EXPECT_EQ(Setting("LastURL"), "www.site.com/docs/");

    Retype(TxtUrl(), "www.o");
    EXPECT_EQ(offers->model()->rowCount(), 2);
    QTest::keyClick(offers, Qt::Key_Escape);
    EXPECT_FALSE(offers->isVisible());
    EXPECT_TRUE(wizard->isVisible());

    QTest::keyClicks(TxtUrl(), "t");
    ASSERT_TRUE(offers->isVisible());
    QTest::keyClick(offers, Qt::Key_Tab);
    EXPECT_FALSE(offers->isVisible());
    EXPECT_FALSE(TxtUrl()->hasFocus());
    TxtDir()->clear();
    for (QWidget* receiver : std::initializer_list<QWidget*>{offers, TxtUrl()}) {
        QKeyEvent late(QEvent::KeyPress, Qt::Key_Z, {}, "z");
        QCoreApplication::sendEvent(receiver, &late);
    }
    EXPECT_EQ(TxtDir()->text(), "zz") << "keys that come late go to the focused box";
}

TEST_F(WizardTest, EnterStartsAsUsualAboveTheOffers) {
    bas_General::NoteAddress("www.other.com");
    Open();
    QAbstractItemView* offers = TxtUrl()->completer()->popup();
    Retype(TxtUrl(), "www.ot");
    ASSERT_TRUE(offers->isVisible());
    QTest::keyClick(offers, Qt::Key_Return);
    EXPECT_TRUE(WaitFor([&] { return window.text1 == "www.ot"; })) << "no offer was chosen";
    EXPECT_EQ(bas_General::RecentAddresses().front(), "www.ot");
}

TEST_F(WizardTest, TakesADroppedLink) {
    Open();
    const QString folder = TxtDir()->text();
    EXPECT_TRUE(Drop(*TxtDir(), "", QUrl("https://www.site.com/a")));
    EXPECT_EQ(Setting("LastURL"), "https://www.site.com/a");
    EXPECT_EQ(TxtDir()->text(), folder);
}

TEST_F(WizardTest, TheFiltersCloseWithIt) {
    Open();
    Click("Command8");
    auto* filters = Find<ui::zFilter>(*wizard, "zFilter");
    ASSERT_TRUE(filters->isVisible());
    wizard->close();
    EXPECT_FALSE(filters->isVisible());
}

#ifndef _WIN32
TEST_F(WizardTest, ShowsTheSystemsPathOfTheFolder) {
    qputenv("HOME", "/home/ann");
    Open();
    const std::pair<const char*, const char*> shown[] = {
        {"C:\\Websites\\", "On this computer: /home/ann/Websites"},
        {"z:\\a\\..\\b?", "On this computer: /b_"},
        {"q:\\x", "This computer has no such drive"}};
    for (const auto& [typed, text] : shown) {
        Retype(TxtDir(), typed);
        EXPECT_EQ(Find<QLabel>(*wizard, "SystemFolder")->text(), text) << typed;
        EXPECT_EQ(TxtDir()->accessibleDescription(), text);
    }
}
#endif

}  // namespace
