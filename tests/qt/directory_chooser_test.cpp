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
    QString Label1() { return Find<QLabel>(*chooser, "Label1")->text(); }
    QString Drive() { return Find<QComboBox>(*chooser, "Drive1")->currentText().left(2); }
    ui::FolderList* Dir1() { return Find<ui::FolderList>(*chooser, "Dir1"); }
    /// The names in the folder list, from top to bottom.
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (QTreeWidgetItemIterator item(Dir1()); *item != nullptr; ++item)
            names.push_back(platform::ToBytes((*item)->text(0)));
        return names;
    }
    void DoubleClick(const char* name) {
        const auto items = Dir1()->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(items.isEmpty()) << name;
        const QPoint place = Dir1()->visualItemRect(items.front()).center();
        QTest::mouseClick(Dir1()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(Dir1()->viewport(), Qt::LeftButton, {}, place);
    }

    std::vector<std::string> chosen;
    std::unique_ptr<ui::zDir> chooser;
};

TEST_F(DirectoryChooserTest, OpensOnTheStoredFolderOrTheNearestThatIsThere) {
    const std::pair<const char*, const char*> opened[] = {
        {"c:/Websites/one", "c:\\Websites\\one"},
        {"C:\\Websites\\gone\\deep\\", "C:\\Websites"},
        {"C:\\gone\\", "C:\\"},
        {"\\srv\\", "z:\\srv"},
        {"q:\\on a drive that is not ready", "C:\\Websites"},
        {"", "C:\\Websites"}};
    for (const auto& [stored, folder] : opened) {
        Open(stored);
        EXPECT_EQ(Label1(), folder) << stored;
        EXPECT_EQ(Drive(), QString(folder).left(2).toLower()) << stored;
    }
    EXPECT_EQ(chooser->windowTitle(), "Select Directory to Save the Website");
}

TEST_F(DirectoryChooserTest, BrowsesByMouse) {
    Open("C:\\Websites\\");
    EXPECT_EQ(Names(), (std::vector<std::string>{"C:\\", "Websites", "one", "two"}));
    DoubleClick("one");
    EXPECT_EQ(Names(), (std::vector<std::string>{"C:\\", "Websites", "one", "inner"}));
    DoubleClick("Websites");
    host.files.folders.erase("c:\\Websites\\one");
    DoubleClick("one");
    EXPECT_EQ(Label1(), "C:\\Websites") << "the nearest to one that has gone meanwhile";
    DoubleClick("two");
    Click(*chooser, "Command1");
    EXPECT_EQ(chosen, (std::vector<std::string>{"C:\\Websites\\two\\"}));
    EXPECT_FALSE(chooser->isVisible());
}

TEST_F(DirectoryChooserTest, BrowsesByKeyboard) {
    Open("C:\\Websites\\");
    QTest::keyClick(Dir1(), Qt::Key_Down);
    QTest::keyClick(Dir1(), Qt::Key_Return);
    EXPECT_EQ(Label1(), "C:\\Websites\\one");
    EXPECT_TRUE(chooser->isVisible());  // Enter was for the list, not for Ok
    for (const char* parent : {"C:\\Websites", "C:\\", "C:\\"}) {
        QTest::keyClick(Dir1(), Qt::Key_Backspace);
        EXPECT_EQ(Label1(), parent);
    }
    QTest::keyClick(chooser.get(), Qt::Key_O, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !chosen.empty(); }));
    EXPECT_EQ(chosen[0], "C:\\\\") << "a root ends in two backslashes";
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
    }
}

#ifndef _WIN32
TEST_F(DirectoryChooserTest, AnotherDriveOpensAtItsRootAndOneThatIsNotReadyNotAtAll) {
    Open("C:\\Websites\\");
    auto* drives = Find<QComboBox>(*chooser, "Drive1");
    QTest::keyClick(drives, Qt::Key_Down);
    EXPECT_EQ(Names(), (std::vector<std::string>{"z:\\", "srv"}));
    host.files.folders.erase("c:");
    QTest::keyClick(drives, Qt::Key_Up);
    EXPECT_EQ(Label1(), "z:\\");
    EXPECT_EQ(Drive(), "z:");
}
#endif

TEST_F(DirectoryChooserTest, ManyFoldersAndOddNames) {
    for (int i = 0; i < 10'000; ++i)
        host.files.folders.insert("c:\\many\\sub" + std::to_string(i));
    for (const char* name : {"b\xc3\xa4r", "Cecil", "no \xff text", ".hidden"})
        host.files.Have(std::string("c:\\many\\") + name);
    Open("C:\\many\\");
    ASSERT_EQ(Names().size(), 2U + 10'003U);
    EXPECT_EQ(Names()[2], "b\xc3\xa4r");  // in a person's order, not in that of the bytes
    EXPECT_EQ(Names()[3], "Cecil");

    DoubleClick("no \xef\xbf\xbd text");
    EXPECT_EQ(Label1(), "C:\\many") << "shown, but the folder box could not hold it";
    DoubleClick("b\xc3\xa4r");
    EXPECT_EQ(platform::ToBytes(Label1()), "C:\\many\\b\xc3\xa4r");
}

}  // namespace
