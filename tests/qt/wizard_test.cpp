#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <memory>
#include <set>

#include "setup/forms/frm_new.h"
#include "setup/forms/z_dir.h"
#include "setup/forms/z_filter.h"
#include "setup/settings.h"
#include "tests/qt/form_test.h"

namespace {

using platform::BoxAnswer;
using platform::BoxStyle;
using Items = std::vector<std::string>;

constexpr char kTypesFile[] = "c:\\program\\temp\\filetypes.txt";
const Items kDefaults = {".htm", ".html", ".php", ".asp", ".txt", ".gif",
                         ".jpg", ".jpeg", ".png", ".pdf", ".zip", ".css"};

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
    /// With a list of types on disk, so that it is not a first run.
    void OpenWithTypes(const std::string& file) {
        host.files.Have(kTypesFile, file);
        Open();
    }
    void Click(const char* name) { FormTest::Click(*wizard, name); }
    void Expand() { Click("Command6"); }
    QLineEdit* TxtUrl() { return Find<QLineEdit>(*wizard, "txtURL"); }
    QLineEdit* TxtDir() { return Find<QLineEdit>(*wizard, "txtDir"); }
    QListWidget* List1() { return Find<QListWidget>(*wizard, "List1"); }
    QComboBox* List2() { return Find<QComboBox>(*wizard, "List2"); }
    Items Types() { return ItemsOf(*wizard, "List1"); }
    std::string Setting(const std::string& key) {
        return host.settings.Get("Vantorin", "Settings", key, "(none)");
    }
    const fakes::ScriptedBoxes::Asked& LastAsked() { return host.boxes.asked.back(); }
    void ExpectEror() {
        ASSERT_EQ(host.boxes.asked.size(), 1U);
        EXPECT_EQ(LastAsked().message,
                  "That is an invalid directory. Check it has no invalid characters.");
        EXPECT_EQ(LastAsked().title, "Eror");
        EXPECT_EQ(LastAsked().style, BoxStyle::Stop);
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

    QStringList offered;
    for (int i = 0; i < List2()->count(); ++i)
        offered += List2()->itemText(i);
    EXPECT_EQ(offered.join(" "), "5 10 20 30 45");
    EXPECT_EQ(List2()->currentText(), "15");

    Items twice = kDefaults;
    twice.insert(twice.end(), kDefaults.begin(), kDefaults.end());
    EXPECT_EQ(Types(), twice);
    EXPECT_EQ(host.files.At(kTypesFile).size(), 74U);
    Click("Command2");
    EXPECT_EQ(host.files.At(kTypesFile).size(), 2 * 74U);
}

TEST_F(WizardTest, ALaterRunShowsWhatWasLeft) {
    bas_General::PutSetting("LastURL", "http://a.com/x");
    bas_General::PutSetting("InDir", "\\srv");
    bas_General::PutSetting("Timeout", "7 or so");
    OpenWithTypes(".htm\r\n\r\n .GIF \r\n");
    EXPECT_EQ(TxtUrl()->text(), "http://a.com/x");
    EXPECT_EQ(TxtDir()->text(), "\\srv");
    EXPECT_EQ(List2()->currentText(), "7 or so");
    EXPECT_EQ(Types(), (Items{".htm", " .GIF "}));
}

TEST_F(WizardTest, ADiskThatTakesNothingStillLetsItOpen) {
    host.files.disk_full = true;
    Open();
    EXPECT_EQ(Types(), kDefaults);
    EXPECT_EQ(TxtDir()->text(), "C:\\Websites\\");
}

TEST_F(WizardTest, EveryKeyIsStored) {
    Open();
    EXPECT_TRUE(TxtUrl()->hasFocus());
    EXPECT_EQ(TxtUrl()->selectedText(), "http://");
    QTest::keyClick(TxtUrl(), Qt::Key_End);
    for (const char* stored : {"http://a", "http://aa", "http://aaa"}) {
        QTest::keyClick(TxtUrl(), Qt::Key_A);
        EXPECT_EQ(Setting("LastURL"), stored);
    }
    Retype(TxtDir(), "d:/x?");
    EXPECT_EQ(Setting("InDir"), "d:/x?");
}

TEST_F(WizardTest, TheBoxesSelectTheirTextWhenTheyGetTheFocus) {
    Open();
    for (QLineEdit* box : {TxtDir(), TxtUrl()}) {
        QTest::mouseClick(wizard->windowHandle(), Qt::LeftButton, {}, box->geometry().center());
        QCoreApplication::processEvents();
        EXPECT_EQ(box->selectedText(), box->text());
        QTest::keyClick(box, Qt::Key_Home);
        QTest::keyClick(wizard.get(), Qt::Key_Tab);
        QTest::keyClick(wizard.get(), Qt::Key_Backtab);
        EXPECT_EQ(box->selectedText(), box->text());
    }
}

TEST_F(WizardTest, OptionsGrowAndShrinkAboutTheCentre) {
    Open();
    wizard->move(200, 100);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(wizard->width(), 457);
        EXPECT_EQ(wizard->pos(), QPoint(200, 100));
        EXPECT_FALSE(Find<QFrame>(*wizard, "Frame1")->isVisible());
        Expand();
        EXPECT_EQ(wizard->width(), 648);
        EXPECT_EQ(wizard->pos(), QPoint(104, 100));  // 1432.5 twips, to the next pixel
        EXPECT_TRUE(Find<QFrame>(*wizard, "Frame1")->isVisible());
        EXPECT_EQ(Find<QPushButton>(*wizard, "Command6")->text(), "Options <<");
        Click("Command6");
        EXPECT_EQ(Find<QPushButton>(*wizard, "Command6")->text(), "Options >>");
    }
}

TEST_F(WizardTest, ControlsStandWhereTheyBelongAndShowAllTheirText) {
    Open();
    const struct {
        const char* name;
        QRect place;
    } cases[] = {
        {"Command2", {344, 8, 97, 25}},    {"Command6", {344, 40, 97, 25}},
        {"Command8", {344, 72, 97, 25}},   {"txtURL", {40, 112, 385, 23}},
        {"Command7", {40, 168, 33, 25}},   {"txtDir", {80, 168, 345, 23}},
        {"Command1", {320, 240, 113, 65}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Find<QWidget>(*wizard, c.name)->geometry(), c.place) << c.name;
    EXPECT_EQ(Find<QFrame>(*wizard, "Frame1")->x(), 456);
    EXPECT_EQ(Find<QFrame>(*wizard, "Frame1")->width(), 177);

    Expand();
    for (const QLabel* label : wizard->findChildren<QLabel*>()) {
        if (!label->wordWrap()) continue;
        EXPECT_LE(label->heightForWidth(label->width()), label->height())
            << label->text().toStdString();
    }
    for (const QPushButton* button : wizard->findChildren<QPushButton*>()) {
        if (button->objectName() == "Command1") continue;  // its caption takes two lines
        const QSize text = button->fontMetrics().size(0, button->text());
        EXPECT_LT(text.width() + 8, button->width()) << button->text().toStdString();
    }
    EXPECT_FALSE(Find<QPushButton>(*wizard, "Command7")->accessibleName().isEmpty());
    EXPECT_FALSE(Find<QPushButton>(*wizard, "Command7")->toolTip().isEmpty());
}

TEST_F(WizardTest, TabVisitsWhatCanBeSeen) {
    Open();
    for (const bool expanded : {false, true}) {
        if (expanded) Expand();
        TxtUrl()->setFocus();
        std::set<QString> visited;
        for (int i = 0; i < 14; ++i) {
            visited.insert(QApplication::focusWidget()->objectName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(visited.contains("List1"), expanded);
        EXPECT_EQ(visited.contains("List2"), expanded);
        for (const char* name :
             {"txtURL", "txtDir", "Command1", "Command2", "Command6", "Command7", "Command8"})
            EXPECT_TRUE(visited.contains(name)) << name;
    }
}

TEST_F(WizardTest, TheFolderIsNormalisedAndTested) {
    host.files.Have("c:\\locked");
    host.files.read_only = {"c:\\locked"};
    const struct {
        std::string typed;
        std::string folder;
        bool accepted;
    } cases[] = {
        {"C:/sites/abc", "C:\\sites\\abc\\", true},
        {"D:/sites/abc", "D:\\sites\\abc\\", false},  // no such drive here
        {"a&b?c", "a_b_c\\", true},
        {"x**y", "xy\\", true},
        {"", "\\", true},
        {"  ", "  \\", false},  // no folder of that name is ever made
        {"C:\\\\", "C:\\\\", true},
        {"C:\\u" + std::string(20, '_'), "C:\\u___\\", true},
        {"C:\\locked", "C:\\locked\\", false},
    };
    for (const auto& c : cases) {
        for (const char* button : {"Command1", "Command2"}) {
            host.boxes.asked.clear();
            window.start_enabled = true;
            OpenWithTypes(".old\r\n");
            host.boxes.inputs = {"new"};
            Find<QPushButton>(*wizard, "Command3")->click();
            Retype(TxtDir(), QString::fromStdString(c.typed));
            Click(button);
            EXPECT_EQ(platform::ToBytes(TxtDir()->text()), c.folder) << c.typed;
            EXPECT_EQ(Setting("InDir"), c.folder) << c.typed;
            EXPECT_EQ(crawl::TargetFolder, c.folder) << c.typed;
            EXPECT_EQ(wizard->isVisible(), !c.accepted) << c.typed;
            EXPECT_EQ(host.files.At(kTypesFile), c.accepted ? ".old\r\n.new\r\n" : ".old\r\n");
            EXPECT_EQ(window.start_enabled, !(c.accepted && std::string(button) == "Command1"));
            if (!c.accepted) ExpectEror();
            EXPECT_FALSE(host.files.FileLength(c.folder + "test23893.txt")) << c.typed;
        }
    }
}

TEST_F(WizardTest, DownloadHandsTheAddressOverAndCloses) {
    OpenWithTypes(".htm\r\n");
    Retype(TxtUrl(), "http://site.com/a");
    Retype(TxtDir(), "C:\\mirror");
    QTest::keyClick(TxtDir(), Qt::Key_Return);
    EXPECT_FALSE(wizard->isVisible());
    EXPECT_EQ(window.text1, "www.site.com/a");
    EXPECT_FALSE(window.start_enabled);
    EXPECT_TRUE(window.tmrMove().Enabled());
    EXPECT_EQ(window.Sock(1).host(), "www.site.com");
    EXPECT_EQ(crawl::TargetFolder, "C:\\mirror\\");
    EXPECT_EQ(crawl::FileTypeSet, ":.htm:");
    EXPECT_TRUE(host.files.FolderExists("c:\\mirror"));
    EXPECT_EQ(Setting("LastURL"), "http://site.com/a");
    EXPECT_EQ(window.tmrOut(24).Interval(), 15'000);
}

TEST_F(WizardTest, CloseStartsNothing) {
    OpenWithTypes(".htm\r\n");
    window.text1 = "untouched";
    Click("Command2");
    EXPECT_FALSE(wizard->isVisible());
    EXPECT_EQ(window.text1, "untouched");
    EXPECT_TRUE(window.start_enabled);
}

TEST_F(WizardTest, EveryWayOfClosingAppliesTheTimeout) {
    const struct {
        std::function<void()> close;
        bool saves_types;
    } ways[] = {
        {[this] { Click("Command1"); }, true},
        {[this] { Click("Command2"); }, true},
        {[this] { QTest::keyClick(wizard.get(), Qt::Key_Escape); }, false},
        {[this] { wizard->close(); }, false},
    };
    for (const auto& way : ways) {
        window.tmrOut(1).SetInterval(1);
        OpenWithTypes(".old\r\n");
        Expand();
        host.boxes.inputs = {"new"};
        Click("Command3");
        Retype(List2(), " 30");
        way.close();
        EXPECT_FALSE(wizard->isVisible());
        EXPECT_EQ(Setting("Timeout"), "30");
        EXPECT_EQ(window.tmrOut(1).Interval(), 30'000);
        EXPECT_EQ(host.files.At(kTypesFile), way.saves_types ? ".old\r\n.new\r\n" : ".old\r\n");
    }
}

TEST_F(WizardTest, TheTimeoutTextIsReadAsANumberOfSeconds) {
    constexpr std::int64_t kBefore = 20'000;
    const struct {
        const char* typed;
        std::int64_t interval;
    } cases[] = {
        {"12 sec", 12'000},   {"abc", 0},         {"0", 0},       {"", kBefore},
        {"   ", kBefore},     {"0.0005", 0},      {"0.0015", 2},  {"0.0025", 2},
        {"2.5", 2'500},       {"-1", kBefore},    {"-0.0001", 0}, {"2147483.647", 2'147'483'647},
        {"2147484", kBefore}, {"1e999", kBefore},
    };
    for (const auto& c : cases) {
        for (int slot = 1; slot <= crawl::kSlotCount; ++slot)
            window.tmrOut(slot).SetInterval(kBefore);
        Open();
        Expand();
        Retype(List2(), c.typed);
        wizard->close();
        EXPECT_EQ(Setting("Timeout"), platform::ToBytes(QString(c.typed).trimmed())) << c.typed;
        for (int slot = 1; slot <= crawl::kSlotCount; ++slot)
            EXPECT_EQ(window.tmrOut(slot).Interval(), c.interval) << c.typed << " " << slot;
    }
}

TEST_F(WizardTest, TheTimeoutIsNotCompletedWhileTyped) {
    Open();
    Expand();
    for (const char* typed : {"1", "4", "2"}) {
        Retype(List2(), typed);
        EXPECT_EQ(List2()->currentText(), typed);
    }
}

TEST_F(WizardTest, AddsFileTypes) {
    OpenWithTypes(".htm\r\n");
    Expand();
    const struct {
        const char* answer;
        const char* added;  // null: the message that it is too long
    } cases[] = {
        {"HTML", ".html"},  {" .Jpeg ", ".jpeg"}, {"abcde", nullptr},
        {".abcd", ".abcd"}, {".abcde", nullptr},  {".htm", ".htm"},
        {"", ""},           {"   ", ""},          {".", "."},
    };
    Items listed = {".htm"};
    for (const auto& c : cases) {
        host.boxes.asked.clear();
        host.boxes.inputs = {c.answer};
        Click("Command3");
        if (c.added != nullptr && *c.added != '\0') listed.push_back(c.added);
        EXPECT_EQ(Types(), listed) << c.answer;
        ASSERT_EQ(host.boxes.asked.size(), c.added == nullptr ? 1U : 0U) << c.answer;
        if (c.added != nullptr) continue;
        EXPECT_EQ(LastAsked().message, "That file extension is too long! (max 4 characters)");
        EXPECT_EQ(LastAsked().title, "Error");
        EXPECT_EQ(LastAsked().style, BoxStyle::Information);
    }
    EXPECT_EQ(host.boxes.inputs_asked.front(),
              std::pair(std::string("Enter a file extension (e.g. .html)"), std::string()));
    EXPECT_EQ(host.files.At(kTypesFile), ".htm\r\n");  // not before the wizard accepts
}

TEST_F(WizardTest, DeletesTheSelectedFileType) {
    OpenWithTypes(".htm\r\n .gif \r\n.css\r\n");
    Expand();
    Click("Command4");
    EXPECT_EQ(LastAsked().message, "You must select a list item to delete.");
    EXPECT_EQ(LastAsked().title, "Error");
    EXPECT_EQ(LastAsked().style, BoxStyle::Information);

    List1()->setCurrentRow(1);
    host.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Click("Command4");
    EXPECT_EQ(LastAsked().message, "Are you sure you want to remove this list item?\r\n\r\n .gif ");
    EXPECT_EQ(LastAsked().title, "Delete");
    EXPECT_EQ(LastAsked().style, BoxStyle::InformationYesNo);
    EXPECT_EQ(List1()->count(), 3);
    QTest::keyClick(List1(), Qt::Key_Delete);
    EXPECT_EQ(Types(), (Items{".htm", ".css"}));

    // Nothing is selected now: the next one is not deleted by a second click.
    Click("Command4");
    EXPECT_EQ(LastAsked().message, "You must select a list item to delete.");
}

TEST_F(WizardTest, SetDefaultAsksAndSavesAtOnce) {
    OpenWithTypes(".old\r\n");
    Expand();
    host.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Click("Command5");
    EXPECT_EQ(Types(), (Items{".old"}));
    EXPECT_EQ(LastAsked().message, "Are you sure you want to set the file types list to default?");
    EXPECT_EQ(LastAsked().title, "Default");
    EXPECT_EQ(LastAsked().style, BoxStyle::InformationYesNo);
    Click("Command5");
    EXPECT_EQ(Types(), kDefaults);
    EXPECT_EQ(host.files.At(kTypesFile).size(), 74U);
    Open();
    EXPECT_EQ(Types(), kDefaults);
}

TEST_F(WizardTest, TheDirectoryChooserFillsTheFolderBox) {
    host.files.Have("c:\\Websites\\mine");
    bas_General::PutSetting("InDir", "C:\\Websites\\mine\\gone");
    Open();
    for (const char* button : {"Command2", "Command1"}) {
        Click("Command7");
        auto* chooser = Find<ui::zDir>(*wizard, "zDir");
        ASSERT_TRUE(QTest::qWaitForWindowActive(chooser));
        EXPECT_TRUE(chooser->isModal());
        FormTest::Click(*chooser, button);
        RunDeletions();
    }
    EXPECT_EQ(TxtDir()->text(), "C:\\Websites\\mine\\");
    EXPECT_EQ(Setting("InDir"), "C:\\Websites\\mine\\");
}

TEST_F(WizardTest, FiltersCanBeEditedBesideItAndCloseWithIt) {
    Open();
    Click("Command8");
    Click("Command8");
    ASSERT_EQ(wizard->findChildren<ui::zFilter*>().size(), 1);
    auto* filters = wizard->findChild<ui::zFilter*>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(filters));
    auto* keyword = Find<QLineEdit>(*filters, "Text1");
    // Through the window system, where a modal wizard would block it.
    QTest::mouseClick(filters->windowHandle(), Qt::LeftButton, {}, keyword->geometry().center());
    for (const char key : {'a', 'd', 's'})
        QTest::keyClick(filters->windowHandle(), key);
    QTest::keyClick(filters->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(ItemsOf(*filters, "List1"), (Items{"ADS"}));
    wizard->close();
    EXPECT_FALSE(filters->isVisible());
    EXPECT_EQ(host.files.At("c:\\program\\filters.txt"), "ADS\r\n");
}

#ifndef _WIN32
TEST_F(WizardTest, SaysWhereTheHostHasTheFolder) {
    qputenv("HOME", "/home/ann");
    Open();
    auto* host_folder = Find<QLabel>(*wizard, "HostFolder");
    const struct {
        const char* typed;
        const char* shown;
    } cases[] = {
        {"C:\\Websites\\", "On this computer: /home/ann/Websites"},
        {"/srv/mirror", "On this computer: /srv/mirror"},
        {"mine", "On this computer: /home/ann/mine"},
        {"z:\\a\\..\\b?", "On this computer: /b_"},
        {"q:\\x", "This computer has no such drive"},
    };
    for (const auto& c : cases) {
        Retype(TxtDir(), c.typed);
        EXPECT_EQ(host_folder->text(), c.shown) << c.typed;
    }
}
#endif

}  // namespace
