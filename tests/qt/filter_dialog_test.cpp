#include <QDialog>
#include <QLineEdit>
#include <QPointer>

#include "setup/forms/z_filter.h"
#include "setup/keyword_filters.h"
#include "tests/qt/form_test.h"

namespace {

using bas_General::KeywordFilters;
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
    Keywords Listed() { return ItemsOf(*dialog, "List1"); }
    QLineEdit* Text1() { return Find<QLineEdit>(*dialog, "Text1"); }
    QListWidget* List1() { return Find<QListWidget>(*dialog, "List1"); }
    std::string Stored() const { return host.files.At("c:\\program\\filters.txt"); }

    QPointer<ui::zFilter> dialog;
};

TEST_F(FilterDialogTest, ShowsTheFiltersInTheirOrder) {
    Open({"ADS", "b", "/Forum/"});
    EXPECT_EQ(Listed(), (Keywords{"ADS", "b", "/Forum/"}));
    EXPECT_EQ(dialog->windowTitle(), "Keyword Filters");
    EXPECT_FALSE(dialog->isModal());
    EXPECT_TRUE(Text1()->hasFocus());
}

TEST_F(FilterDialogTest, AddsKeywordsInUpperCaseAndOnce) {
    Open({"BANNER"});
    const struct {
        const char* typed;
        Keywords listed;
        std::size_t boxes;
    } cases[] = {
        {"ads", {"BANNER", "ADS"}, 0},          {"   ", {"BANNER", "ADS"}, 0},
        {" banner ", {"BANNER", "ADS"}, 1},     {"Ads", {"BANNER", "ADS"}, 2},
        {" x y ", {"BANNER", "ADS", "X Y"}, 2},
    };
    for (const auto& c : cases) {
        Retype(Text1(), c.typed);
        QTest::keyClick(Text1(), Qt::Key_Return);
        EXPECT_EQ(Listed(), c.listed) << c.typed;
        EXPECT_EQ(host.boxes.asked.size(), c.boxes) << c.typed;
        EXPECT_TRUE(Text1()->text().isEmpty() && Text1()->hasFocus()) << c.typed;
    }
    EXPECT_EQ(host.boxes.asked[0].message, "Filter already exists in the list!");
    EXPECT_EQ(host.boxes.asked[0].title, "Filter");
    EXPECT_EQ(host.boxes.asked[0].style, BoxStyle::Information);

    Retype(Text1(), "z");
    Click(*dialog, "Command1");
    EXPECT_EQ(Listed().back(), "Z");
    EXPECT_TRUE(Text1()->hasFocus());
}

TEST_F(FilterDialogTest, RemovingSelectsWhatMovesUp) {
    Open({"A", "B", "C"});
    Click(*dialog, "Command2");  // nothing is selected
    EXPECT_EQ(Listed(), (Keywords{"A", "B", "C"}));

    List1()->setCurrentRow(1);
    Click(*dialog, "Command2");
    EXPECT_EQ(Listed(), (Keywords{"A", "C"}));
    ASSERT_EQ(List1()->selectedItems().size(), 1);
    EXPECT_EQ(List1()->selectedItems()[0]->text(), "C");

    QTest::keyClick(List1(), Qt::Key_Delete);
    EXPECT_EQ(Listed(), (Keywords{"A"}));
    EXPECT_TRUE(List1()->selectedItems().isEmpty());  // the last one has no successor
    Click(*dialog, "Command2");
    EXPECT_EQ(Listed(), (Keywords{"A"}));

    List1()->setCurrentRow(0);
    Click(*dialog, "Command2");
    EXPECT_EQ(List1()->count(), 0);
}

TEST_F(FilterDialogTest, ClearsAllAfterAQuestion) {
    Open({"A", "B"});
    host.boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Click(*dialog, "Command3");
    EXPECT_EQ(Listed(), (Keywords{"A", "B"}));
    Click(*dialog, "Command3");
    EXPECT_TRUE(Listed().empty());
    ASSERT_EQ(host.boxes.asked.size(), 2U);
    EXPECT_EQ(host.boxes.asked[0].message, "Are you sure you want to remove all the filters?");
    EXPECT_EQ(host.boxes.asked[0].title, "Clear Filters");
    EXPECT_EQ(host.boxes.asked[0].style, BoxStyle::StopYesNo);
}

TEST_F(FilterDialogTest, EveryWayOfClosingKeepsTheList) {
    QWidget parent;
    const std::vector<std::function<void()>> ways = {
        [&] { Click(*dialog, "Command4"); },
        [&] { QTest::keyClick(dialog, Qt::Key_Escape); },
        [&] { dialog->close(); },
        [&] { delete dialog.data(); },
    };
    for (const auto& close : ways) {
        Open({"OLD"}, &parent);
        Retype(Text1(), "new");
        Click(*dialog, "Command1");
        EXPECT_EQ(KeywordFilters[2], "");  // not before it closes
        close();
        EXPECT_EQ(KeywordFilters[1], "OLD");
        EXPECT_EQ(KeywordFilters[2], "NEW");
        EXPECT_EQ(KeywordFilters[3], "");
        EXPECT_EQ(Stored(), "OLD\r\nNEW\r\n");
        RunDeletions();
        EXPECT_TRUE(dialog.isNull());
    }
    // The next start of the program.
    bas_General::LoadKeywordFilters();
    EXPECT_EQ(KeywordFilters[2], "NEW");
}

TEST_F(FilterDialogTest, ParentsTakeAnOpenDialogWithThem) {
    {
        QWidget parent;
        Open({}, &parent);
        Retype(Text1(), "kept");
        QTest::keyClick(Text1(), Qt::Key_Return);
    }
    EXPECT_TRUE(dialog.isNull());
    EXPECT_EQ(Stored(), "KEPT\r\n");
}

TEST_F(FilterDialogTest, ThereIsOnlyOneAndItMovesToWhoAsksForIt) {
    QWidget first;
    QDialog modal(&first);
    Open({"A"}, &first);
    Retype(Text1(), "unsaved");
    QTest::keyClick(Text1(), Qt::Key_Return);
    EXPECT_EQ(ui::zFilter::ShowOver(&first), dialog);

    modal.setModal(true);
    Show(modal);
    EXPECT_EQ(ui::zFilter::ShowOver(&modal), dialog);
    EXPECT_EQ(dialog->parentWidget(), &modal);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {},
                      Find<QPushButton>(*dialog, "Command4")->geometry().center());
    EXPECT_EQ(Stored(), "A\r\nUNSAVED\r\n");
    // One that has closed but is not deleted yet is not shown again.
    ui::zFilter* next = ui::zFilter::ShowOver(&first);
    EXPECT_NE(next, dialog);
    next->close();
    RunDeletions();
}

TEST_F(FilterDialogTest, MayVanishBehindItsOwnQuestion) {
    host.boxes.while_open = [this] { delete dialog.data(); };
    host.boxes.answers = {BoxAnswer::Yes};
    for (const char* button : {"Command1", "Command3"}) {
        Open({"A"});
        Retype(Text1(), "a");
        Find<QPushButton>(*dialog, button)->click();
        EXPECT_TRUE(dialog.isNull()) << button;
        EXPECT_EQ(Stored(), "A\r\n") << button;
    }
}

TEST_F(FilterDialogTest, BytesThatNoEncodingKnowsStayAsTheyWere) {
    Open({"caf\xe9", "B"});
    List1()->setCurrentRow(1);
    Click(*dialog, "Command2");
    dialog->close();
    EXPECT_EQ(Stored(), "caf\xe9\r\n");
}

}  // namespace
