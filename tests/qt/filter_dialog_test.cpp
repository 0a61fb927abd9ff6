#include <QDialog>
#include <QLineEdit>
#include <QPointer>

#include "forms/z_filter.h"
#include "setup/keyword_filters.h"
#include "tests/qt/form_test.h"

namespace {

using platform::BoxAnswer;
using platform::BoxStyle;
using Keywords = std::vector<std::string>;

class FilterDialogTest : public FormTest {
  protected:
    ~FilterDialogTest() override {
        delete dialog.data();
        RunDeletions();
    }
    void Open(const Keywords& keywords, QWidget* parent = nullptr) {
        bas_General::StoreKeywordFilters(keywords);
        dialog = ui::zFilter::ShowOver(parent);
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    }
    void Add(const char* keyword) {
        Retype(Find<QLineEdit>(*dialog, "Text1"), keyword);
        QTest::keyClick(Find<QLineEdit>(*dialog, "Text1"), Qt::Key_Return);
    }
    QListWidget* List1() { return Find<QListWidget>(*dialog, "List1"); }
    std::string Stored() const { return system.files.At("c:\\program\\filters.txt"); }

    QPointer<ui::zFilter> dialog;
};

TEST_F(FilterDialogTest, AddsKeywordsInUpperCaseAndOnce) {
    Open({"BANNER", "/Forum/"});
    for (const char* typed : {"ads", "   ", " banner ", "Ads", " x y "})
        Add(typed);
    EXPECT_EQ(ItemsOf(*dialog, "List1"), (Keywords{"BANNER", "/Forum/", "ADS", "X Y"}));
    EXPECT_EQ(system.boxes.asked.size(), 2U);
    ExpectAsked("Filter already exists in the list!", BoxStyle::Information, "Filter");
}

TEST_F(FilterDialogTest, RemovingSelectsTheNextKeyword) {
    Open({"A", "caf\xe9", "B", "C"});
    List1()->setCurrentRow(2);
    Click(*dialog, "Command2");
    ASSERT_EQ(List1()->selectedItems().size(), 1);
    EXPECT_EQ(List1()->selectedItems()[0]->text(), "C");
    QTest::keyClick(List1(), Qt::Key_Delete);
    EXPECT_TRUE(List1()->selectedItems().isEmpty());  // nothing follows the last one
    Click(*dialog, "Command2");
    dialog->close();
    EXPECT_EQ(Stored(), "A\r\ncaf\xe9\r\n");  // bytes that form no character stay unchanged
}

TEST_F(FilterDialogTest, ClearsAllAfterAQuestion) {
    Open({"A", "B"});
    system.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Click(*dialog, "Command3");
    EXPECT_EQ(List1()->count(), 2);
    Click(*dialog, "Command3");
    EXPECT_EQ(List1()->count(), 0);
    ExpectAsked("Are you sure you want to remove all the filters?", BoxStyle::StopYesNo,
                "Clear Filters");
}

TEST_F(FilterDialogTest, TakesOverWhatAnotherCopyHasStored) {
    bas_General::StoreKeywordFilters({"A", "B"});
    system.files.Have("c:\\program\\filters.txt", "A\r\nB\r\nC\r\n");
    dialog = ui::zFilter::ShowOver(nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    EXPECT_EQ(ItemsOf(*dialog, "List1"), (Keywords{"A", "B", "C"}));
    Add("mine");
    system.files.Have("c:\\program\\filters.txt", "B\r\nC\r\nD\r\n");
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(dialog, &back);
    EXPECT_EQ(ItemsOf(*dialog, "List1"), (Keywords{"B", "C", "MINE", "D"}));
    dialog->close();
    EXPECT_EQ(Stored(), "B\r\nC\r\nMINE\r\nD\r\n");
}

TEST_F(FilterDialogTest, StoresTheListEvenIfItsParentIsDestroyed) {
    auto parent = std::make_unique<QWidget>();
    Open({"OLD"}, parent.get());
    Add("new");
    EXPECT_EQ(Stored(), "OLD\r\n");
    parent.reset();
    EXPECT_TRUE(dialog.isNull());
    EXPECT_EQ(bas_General::KeywordFilters[2], "NEW");
    EXPECT_EQ(Stored(), "OLD\r\nNEW\r\n");
}

TEST_F(FilterDialogTest, ThereIsOnlyOneAndItMovesToTheFormThatOpensIt) {
    QWidget first;
    QDialog modal(&first);
    Open({"A"}, &first);
    Add("unsaved");
    modal.setModal(true);
    Show(modal);
    EXPECT_EQ(ui::zFilter::ShowOver(&modal), dialog);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    // Sent through the window system, where a modal form would block it.
    QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {},
                      Find<QPushButton>(*dialog, "Command4")->geometry().center());
    EXPECT_EQ(Stored(), "A\r\nUNSAVED\r\n");
}

}  // namespace
