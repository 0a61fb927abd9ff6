#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include "crawl/list_items.h"
#include "platform/qt/local_text.h"
#include "ui/address_list.h"
#include "widgets/elided_text.h"

namespace {

class PaintCounter : public QObject {
  public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

}  // namespace

class AddressList : public testing::Test {
  protected:
    AddressList() {
        list.resize(300, 200);
        list.show();
        list.setFocus();
        QTest::qWait(1);
    }
    void Add(int count) {
        for (int i = 0; i < count; ++i)
            items.AddItem("www.site.com/" + std::to_string(items.Count()));
    }
    /// Waits until the list shows the current items.
    static void Refresh() {
        QTest::qWait(100);
        // On a busy machine the wait can end without having run the timer that is due.
        QCoreApplication::processEvents();
    }
    std::string RowAt(int y) { return platform::ToBytes(list.indexAt({20, y}).data().toString()); }
    std::string BottomRow() { return RowAt(list.viewport()->height() - list.rowHeight(0)); }

    crawl::ListItems items;
    ui::AddressList list{items, ui::AddressList::Shows::End, nullptr};
};

TEST_F(AddressList, PaintsAMillionChangesAFewTimes) {
    PaintCounter counter;
    list.viewport()->installEventFilter(&counter);
    Add(1'000'000);
    Refresh();
    EXPECT_EQ(list.model()->rowCount(), 1'000'000);
    for (int i = 0; i < 500'000; ++i)
        items.RemoveLast();
    Refresh();
    EXPECT_EQ(list.model()->rowCount(), 500'000);
    EXPECT_LE(counter.paints, 8);
}

TEST_F(AddressList, KeepsItsEndInViewUntilScrolledUp) {
    Add(100);
    Refresh();
    EXPECT_EQ(BottomRow(), "www.site.com/99");
    list.resize(300, 120);
    Add(50);
    Refresh();
    EXPECT_EQ(BottomRow(), "www.site.com/149");
    for (const int added : {1, 3, 5}) {  // like a crawl, which takes some and finds others
        for (int i = 0; i < 3; ++i)
            items.RemoveLast();
        Add(added);
        Refresh();
        EXPECT_EQ(BottomRow(), items.Item(items.Count() - 1));
    }
    list.verticalScrollBar()->setValue(20);
    Add(50);
    Refresh();
    EXPECT_EQ(RowAt(1), "www.site.com/20");
    QTest::keyClick(&list, Qt::Key_End);
    Add(1);
    Refresh();
    EXPECT_EQ(BottomRow(), "www.site.com/200");
}

TEST_F(AddressList, SelectsByKeysAndMouse) {
    Add(100);
    Refresh();
    QTest::keyClicks(&list, "w");
    EXPECT_EQ(list.Selected(), "") << "typing does not search";
    const std::pair<Qt::Key, const char*> presses[] = {{Qt::Key_Home, "www.site.com/0"},
                                                       {Qt::Key_Down, "www.site.com/1"},
                                                       {Qt::Key_End, "www.site.com/99"},
                                                       {Qt::Key_Up, "www.site.com/98"}};
    for (const auto& [key, selected] : presses) {
        QTest::keyClick(&list, key);
        EXPECT_EQ(list.Selected(), selected);
    }
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "www.site.com/98");

    QSignalSpy activated(&list, &ui::AddressList::Activated);
    list.verticalScrollBar()->setValue(50);
    const QPoint second_row = list.visualRect(list.model()->index(51, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second_row);
    EXPECT_EQ(list.Selected(), "www.site.com/51");
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(activated.count(), 1);
}

TEST_F(AddressList, ADoubleClickOpensTheRowOfItsFirstClick) {
    Add(100);
    Refresh();
    QSignalSpy clicked(&list, &ui::AddressList::DoubleClicked);
    const QPoint last_row = list.visualRect(list.model()->index(99, 0)).center();
    for (const bool moves : {false, true}) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, last_row);
        if (moves) {
            items.RemoveLast();
            Refresh();
        }
        QMouseEvent second(QEvent::MouseButtonDblClick, last_row, list.mapToGlobal(last_row),
                           Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(list.viewport(), &second);
        ASSERT_FALSE(clicked.isEmpty());
        EXPECT_EQ(clicked.takeLast()[0].value<std::string>(), "www.site.com/99");
    }
}

TEST_F(AddressList, OnlyElidedRowsThatStandStillHaveATooltip) {
    const auto has_tooltip = [&](const QPoint& place) {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent help(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(list.viewport(), &help);
        return QToolTip::isVisible();
    };
    Add(100);
    items.AddItem("www.site.com/" + std::string(200, 'x'));
    items.AddItem("www.site.com/" + std::string(200, 'y'));
    Refresh();
    const QPoint at_99 = list.visualRect(list.model()->index(99, 0)).center();
    const QPoint at_101 = list.visualRect(list.model()->index(101, 0)).center();
    QTest::mouseMove(list.viewport(), at_99);
    EXPECT_FALSE(has_tooltip(at_99));
    QTest::mouseMove(list.viewport(), at_101);
    EXPECT_TRUE(has_tooltip(at_101));
    items.RemoveLast();
    Refresh();
    EXPECT_FALSE(has_tooltip(at_101)) << "another row moved under the pointer";
}

TEST_F(AddressList, ShowsTheFocusWithoutARow) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    const QImage focused = list.grab().toImage();
    list.clearFocus();
    EXPECT_NE(list.grab().toImage(), focused);
}

TEST_F(AddressList, CopiesTheSelectionOrAll) {
    Add(5);
    Refresh();
    const auto clipboard = [] { return QApplication::clipboard()->text(); };
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Up, Qt::ShiftModifier);
    const QPoint first_row = list.visualRect(list.model()->index(0, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, first_row);
    EXPECT_EQ(list.Selected(), "www.site.com/0") << "the row with the focus";
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(clipboard(), "www.site.com/0\nwww.site.com/3\nwww.site.com/4");

    items.RemoveLast();
    items.AddItem("another");
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(clipboard(), "www.site.com/0\nwww.site.com/3");
    list.findChild<QAction*>("CopyAll")->trigger();
    EXPECT_EQ(clipboard().count('\n'), 4);
    EXPECT_TRUE(clipboard().endsWith("\nanother"));
}

TEST_F(AddressList, OffersTheTypesOfTheSelection) {
    list.OfferTypes();
    for (const char* item : {"site.com/a.WAV", "site.com/b", "site.com/c.iso", "site.com/d.wav"})
        items.AddItem(item);
    Refresh();
    auto* entry = list.findChild<QAction*>("GetType");
    EXPECT_FALSE(entry->isEnabled());
    list.selectRow(1);
    EXPECT_FALSE(entry->isEnabled());
    list.selectRow(0);
    EXPECT_EQ(entry->text(), "Get files of this type (.wav)");
    QSignalSpy wanted(&list, &ui::AddressList::TypesWanted);
    QTest::keySequence(&list, QKeySequence::SelectAll);
    entry->trigger();
    EXPECT_EQ(wanted.at(0).at(0).value<std::vector<std::string>>(),
              (std::vector<std::string>{".iso", ".wav"}));
}

TEST_F(AddressList, NeverSelectsARemovedItem) {
    Add(3);
    Refresh();
    list.selectRow(2);
    items.RemoveLast();
    items.AddItem("another");
    EXPECT_EQ(list.Selected(), "");
    list.selectRow(0);
    items.Clear();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.Selected(), "");
}

TEST_F(AddressList, ShowsKeyboardUsersTheCurrentRow) {
    QLineEdit before;
    before.setFocus();
    Add(2);
    Refresh();
    QFocusEvent tab(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&list, &tab);
    EXPECT_EQ(list.Selected(), "www.site.com/1") << "the next one to fetch";
}

TEST_F(AddressList, TellsItsRowsToAScreenReader) {
    Add(30);
    Refresh();
    QAccessibleTableInterface* table =
        QAccessible::queryAccessibleInterface(&list)->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 30);
    EXPECT_EQ(table->cellAt(29, 0)->text(QAccessible::Name), "www.site.com/29");
}

TEST(ElidedText, KeepsBothEndsOfAnAddress) {
    const QFontMetrics metrics{QFont()};
    const std::string address = "www.site.com/" + std::string(1'000'000, 'x') + "/page.html";
    const QString shown = ui::ElideMiddle(QString::fromStdString(address), metrics, 300);
    EXPECT_LE(metrics.horizontalAdvance(shown), 300);
    EXPECT_TRUE(shown.startsWith("www.site.com"));
    EXPECT_TRUE(shown.endsWith("page.html"));
    EXPECT_EQ(ui::ElideMiddle("a\tb\r\nc\x1f", metrics, 300), "a b  c ") << "on one line";
}
