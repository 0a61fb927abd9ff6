#include <QComboBox>
#include <QLabel>
#include <QTreeWidgetItemIterator>
#include <memory>

#include "forms/folder_list.h"
#include "forms/z_dir.h"
#include "setup/settings.h"
#include "tests/qt/form_test.h"

namespace {

class DirectoryChooserTest : public FormTest {
  protected:
    DirectoryChooserTest() {
        for (const char* folder : {"c:\\Websites\\one\\inner", "c:\\Websites\\two", "z:\\srv"})
            system.files.Have(folder);
    }
    void Open(const std::string& stored) {
        bas_General::PutSetting("InDir", stored);
        chooser = std::make_unique<ui::zDir>(
            nullptr, [this](const std::string& folder) { chosen.push_back(folder); });
        Show(*chooser);
    }
    QString Label1() { return Find<QLabel>(*chooser, "Label1")->text(); }
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

TEST_F(DirectoryChooserTest, OpensAtTheStoredFolderOrItsNearestExistingParent) {
    const std::pair<const char*, const char*> opened[] = {
        {"c:/Websites/one", "c:\\Websites\\one"},
        {"C:\\Websites\\gone\\deep\\", "C:\\Websites"},
        {"\\srv\\", "z:\\srv"},
        {"q:\\on a drive that is not ready", "C:\\Websites"}};
    for (const auto& [stored, folder] : opened) {
        Open(stored);
        EXPECT_EQ(Label1(), folder) << stored;
    }
}

TEST_F(DirectoryChooserTest, BrowsesByMouse) {
    Open("C:\\Websites\\");
    DoubleClick("one");
    EXPECT_EQ(Names(), (std::vector<std::string>{"C:\\", "Websites", "one", "inner"}));
    DoubleClick("Websites");
    system.files.folders.erase("c:\\Websites\\one");
    DoubleClick("one");
    EXPECT_EQ(Label1(), "C:\\Websites")
        << "the nearest parent of a folder that was deleted meanwhile";
    DoubleClick("two");
    Click(*chooser, "Command1");
    EXPECT_EQ(chosen, (std::vector<std::string>{"C:\\Websites\\two\\"}));
    EXPECT_FALSE(chooser->isVisible());
}

TEST_F(DirectoryChooserTest, CreatesANewFolderAndOpensIt) {
    Open("C:\\Websites\\");
    for (const char* name : {"", "one", "a/b", " copy "}) {
        system.boxes.inputs = {name};
        Click(*chooser, "NewFolder");
        EXPECT_EQ(chooser->focusWidget()->objectName(),
                  name == std::string(" copy ") ? "Command1" : "NewFolder");
    }
    EXPECT_EQ(system.boxes.asked.size(), 2U) << "one exists already, and a/b is not a name";
    EXPECT_EQ(Label1(), "C:\\Websites\\copy");
    Click(*chooser, "Command1");
    EXPECT_EQ(chosen, (std::vector<std::string>{"C:\\Websites\\copy\\"}));
}

TEST_F(DirectoryChooserTest, ARootEndsInTwoBackslashes) {
    Open("C:\\");
    Click(*chooser, "Command1");
    EXPECT_EQ(chosen, (std::vector<std::string>{"C:\\\\"}));
}

#ifndef _WIN32  // Windows has its own drives, and every byte is a character.
TEST_F(DirectoryChooserTest, ShowsTheSystemsPathOfTheFolder) {
    qputenv("HOME", "/home/ann");
    Open("C:\\Websites\\");
    EXPECT_EQ(Find<QLabel>(*chooser, "SystemFolder")->text(),
              "On this computer: /home/ann/Websites");
    DoubleClick("two");
    EXPECT_EQ(Find<QLabel>(*chooser, "SystemFolder")->text(),
              "On this computer: /home/ann/Websites/two");
}

TEST_F(DirectoryChooserTest, OpensADriveAtItsRootUnlessItIsNotReady) {
    Open("C:\\Websites\\");
    auto* drives = Find<QComboBox>(*chooser, "Drive1");
    QTest::keyClick(drives, Qt::Key_Down);
    EXPECT_EQ(Names(), (std::vector<std::string>{"z:\\", "srv"}));
    system.files.folders.erase("c:");
    QTest::keyClick(drives, Qt::Key_Up);
    EXPECT_EQ(Label1(), "z:\\");
    EXPECT_EQ(drives->currentText().left(2), "z:");
}

TEST_F(DirectoryChooserTest, OddNames) {
    for (const char* name : {"b\xc3\xa4r", "no \xff text", ".hidden"})
        system.files.Have(std::string("c:\\many\\") + name);
    Open("C:\\many\\");
    ASSERT_EQ(Names().size(), 4U);
    DoubleClick("no \xef\xbf\xbd text");
    EXPECT_EQ(Label1(), "C:\\many") << "it is shown, but the folder box cannot hold its name";
}
#endif

}  // namespace
