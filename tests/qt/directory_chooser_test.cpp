#include <QComboBox>
#include <QLabel>
#include <QTreeWidgetItemIterator>
#include <memory>

#include "setup/forms/folder_list.h"
#include "setup/forms/z_dir.h"
#include "setup/settings.h"
#include "tests/qt/form_test.h"

namespace {

class DirectoryChooserTest : public FormTest {
  protected:
    DirectoryChooserTest() {
        for (const char* folder : {"c:\\Websites\\one\\inner", "c:\\Websites\\two", "z:\\srv"})
            host.files.Have(folder);
    }
    void Open(const std::string& stored) {
        bas_General::PutSetting("InDir", stored);
        chosen.clear();
        chooser = std::make_unique<ui::zDir>(
            nullptr, [this](const std::string& folder) { chosen.push_back(folder); });
        chooser->setModal(true);
        Show(*chooser);
    }
    std::string Label1() { return platform::ToBytes(Find<QLabel>(*chooser, "Label1")->text()); }
    std::string Drive() {
        return platform::ToBytes(Find<QComboBox>(*chooser, "Drive1")->currentText()).substr(0, 2);
    }
    ui::FolderList* Dir1() { return Find<ui::FolderList>(*chooser, "Dir1"); }
    /// The names in the folder list, from top to bottom.
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (QTreeWidgetItemIterator item(Dir1()); *item != nullptr; ++item)
            names.push_back(platform::ToBytes((*item)->text(0)));
        return names;
    }
    QTreeWidgetItem* Item(const char* name) {
        const auto items = Dir1()->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return items.isEmpty() ? nullptr : items.front();
    }
    void DoubleClick(const char* name) {
        ASSERT_NE(Item(name), nullptr) << name;
        const QPoint place = Dir1()->visualItemRect(Item(name)).center();
        QTest::mouseClick(Dir1()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(Dir1()->viewport(), Qt::LeftButton, {}, place);
    }

    std::vector<std::string> chosen;
    std::unique_ptr<ui::zDir> chooser;
};

TEST_F(DirectoryChooserTest, OpensOnTheStoredFolderOrTheNearestThatIsThere) {
    const struct {
        const char* stored;
        const char* label;
        const char* drive;
    } cases[] = {
        {"C:\\Websites\\", "C:\\Websites", "c:"},
        {"c:/Websites/one", "c:\\Websites\\one", "c:"},
        {"C:\\Websites\\gone\\deep\\", "C:\\Websites", "c:"},
        {"C:\\gone\\", "C:\\", "c:"},
        {"\\srv\\", "z:\\srv", "z:"},
        {"\\", "z:\\", "z:"},
        {"Websites", "c:\\Websites", "c:"},
        {"q:\\on a drive that is not ready", "C:\\Websites", "c:"},
        {"", "C:\\Websites", "c:"},
    };
    for (const auto& c : cases) {
        Open(c.stored);
        EXPECT_EQ(Label1(), c.label) << c.stored;
        EXPECT_EQ(Drive(), c.drive) << c.stored;
    }
    EXPECT_EQ(chooser->windowTitle(), "Select Directory to Save the Website");
    host.settings = {};
    ui::zDir first_run(nullptr, {});
    EXPECT_EQ(Find<QLabel>(first_run, "Label1")->text(), "C:\\Websites");
}

TEST_F(DirectoryChooserTest, BrowsesByMouse) {
    Open("C:\\Websites\\");
    EXPECT_EQ(Names(), (std::vector<std::string>{"C:\\", "Websites", "one", "two"}));
    DoubleClick("one");
    EXPECT_EQ(Label1(), "C:\\Websites\\one");
    EXPECT_EQ(Names(), (std::vector<std::string>{"C:\\", "Websites", "one", "inner"}));
    DoubleClick("Websites");
    DoubleClick("two");
    Click(*chooser, "Command1");
    EXPECT_EQ(chosen, (std::vector<std::string>{"C:\\Websites\\two\\"}));
    EXPECT_FALSE(chooser->isVisible());
}

TEST_F(DirectoryChooserTest, BrowsesByKeyboard) {
    Open("C:\\Websites\\");
    EXPECT_TRUE(Dir1()->hasFocus());
    QTest::keyClick(Dir1(), Qt::Key_Down);
    QTest::keyClick(Dir1(), Qt::Key_Return);
    EXPECT_EQ(Label1(), "C:\\Websites\\one");
    EXPECT_TRUE(chooser->isVisible());  // Enter was for the list, not for Ok
    for (const char* parent : {"C:\\Websites", "C:\\", "C:\\"}) {
        QTest::keyClick(Dir1(), Qt::Key_Backspace);
        EXPECT_EQ(Label1(), parent);
    }
    QTest::keyClicks(Dir1(), "web");
    QTest::keyClick(Dir1(), Qt::Key_Enter);
    EXPECT_EQ(Label1(), "C:\\Websites");
    QTest::keyClick(chooser.get(), Qt::Key_O, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !chosen.empty(); }));
    EXPECT_EQ(chosen, (std::vector<std::string>{"C:\\Websites\\"}));
}

TEST_F(DirectoryChooserTest, ARootEndsInTwoBackslashes) {
    Open("C:\\");
    Click(*chooser, "Command1");
    EXPECT_EQ(chosen, (std::vector<std::string>{"C:\\\\"}));
}

TEST_F(DirectoryChooserTest, OtherWaysOfClosingChangeNothing) {
    for (const bool by_escape : {true, false}) {
        Open("C:\\Websites\\");
        DoubleClick("two");
        if (by_escape) {
            QTest::keyClick(chooser.get(), Qt::Key_Escape);
        } else {
            Click(*chooser, "Command2");
        }
        EXPECT_FALSE(chooser->isVisible());
        EXPECT_TRUE(chosen.empty());
        EXPECT_EQ(bas_General::StoredFolder(), "C:\\Websites\\");
    }
}

#ifndef _WIN32
TEST_F(DirectoryChooserTest, AnotherDriveOpensAtItsRootAndOneThatIsNotReadyNotAtAll) {
    Open("C:\\Websites\\");
    auto* drives = Find<QComboBox>(*chooser, "Drive1");
    QTest::keyClick(drives, Qt::Key_Down);
    EXPECT_EQ(Label1(), "z:\\");
    EXPECT_EQ(Names(), (std::vector<std::string>{"z:\\", "srv"}));

    host.files.folders.erase("c:");
    QTest::keyClick(drives, Qt::Key_Up);
    EXPECT_EQ(Label1(), "z:\\");
    EXPECT_EQ(Drive(), "z:");
}
#endif

TEST_F(DirectoryChooserTest, AFolderThatHasGoneMeanwhileOpensTheNearest) {
    Open("C:\\Websites\\");
    host.files.folders.erase("c:\\Websites\\two");
    DoubleClick("two");
    EXPECT_EQ(Label1(), "C:\\Websites");
    EXPECT_EQ(Item("two"), nullptr);
}

TEST_F(DirectoryChooserTest, ManyFoldersAndOddNames) {
    for (int i = 0; i < 10'000; ++i)
        host.files.folders.insert("c:\\many\\sub" + std::to_string(i));
    host.files.Have("c:\\many\\b\xc3\xa4r");
    host.files.Have("c:\\many\\Alpha");
    host.files.Have("c:\\many\\no \xff text");
    host.files.Have("c:\\many\\.hidden");
    Open("C:\\many\\");
    const std::vector<std::string> names = Names();
    ASSERT_EQ(names.size(), 2U + 10'003U);
    EXPECT_EQ(names[2], "Alpha");  // in a person's order, not in that of the bytes
    EXPECT_EQ(names[3], "b\xc3\xa4r");

    // A name that the folder box cannot hold is shown but cannot be opened.
    DoubleClick("no \xef\xbf\xbd text");
    EXPECT_EQ(Label1(), "C:\\many");
    QTest::keyClick(Dir1(), Qt::Key_Return);
    EXPECT_EQ(Label1(), "C:\\many");
    DoubleClick("b\xc3\xa4r");
    EXPECT_EQ(Label1(), "C:\\many\\b\xc3\xa4r");
}

}  // namespace
