#include <gtest/gtest.h>

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "platform/list_items.h"
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
        page = list.viewport()->height() / row_height;
    }
    void Add(int count) {
        for (int i = 0; i < count; ++i)
            items.AddItem("www.site.com/" + std::to_string(i));
    }
    QPoint InRow(int row) const { return {20, row * row_height + row_height / 2}; }

    platform::ListItems items;
    ui::AddressList list{items, nullptr};
    const int row_height = list.fontMetrics().height() + 2;
    int page = 0;
};

TEST_F(AddressList, PaintsAMillionChangesAFewTimes) {
    PaintCounter counter;
    list.viewport()->installEventFilter(&counter);
    Add(1'000'000);
    QTest::qWait(100);
    EXPECT_LE(counter.paints, 3);
    EXPECT_EQ(list.verticalScrollBar()->maximum(), 1'000'000 - page);

    counter.paints = 0;
    for (int i = 0; i < 500'000; ++i)
        items.RemoveLast();
    QTest::qWait(100);
    EXPECT_EQ(counter.paints, 0) << "nothing on screen changed";
}

TEST_F(AddressList, SelectsByKeysAndMouse) {
    Add(100);
    const std::pair<Qt::Key, int> presses[] = {{Qt::Key_Down, 0},
                                               {Qt::Key_Down, 1},
                                               {Qt::Key_End, 99},
                                               {Qt::Key_PageUp, 99 - page},
                                               {Qt::Key_Home, 0}};
    for (const auto& [key, selected] : presses) {
        QTest::keyClick(&list, key);
        EXPECT_EQ(list.Selected(), static_cast<std::size_t>(selected));
    }
    QSignalSpy activated(&list, &ui::AddressList::Activated);
    list.verticalScrollBar()->setValue(50);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, InRow(1));
    EXPECT_EQ(list.Selected(), 51U);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, InRow(2));
    EXPECT_EQ(list.Selected(), 52U);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(activated.count(), 2);
}

TEST_F(AddressList, SelectionIsNeverAnItemThatIsGone) {
    Add(3);
    list.Select(2);
    items.RemoveLast();
    items.AddItem("another");
    EXPECT_FALSE(list.Selected());
    list.Select(0);
    items.Clear();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_FALSE(list.Selected());
}

TEST(ElidedText, KeepsBothEndsOfAnAddress) {
    const QFontMetrics metrics{QFont()};
    const std::string address = "www.site.com/" + std::string(1'000'000, 'x') + "/page.html";
    const QString shown = ui::ElideMiddle(address, metrics, 300);
    EXPECT_LE(metrics.horizontalAdvance(shown), 300);
    EXPECT_TRUE(shown.startsWith("www.site.com"));
    EXPECT_TRUE(shown.endsWith("page.html"));
}
