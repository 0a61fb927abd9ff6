#include "platform/qt/qt_message_boxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>

namespace {

using platform::BoxAnswer;
using platform::BoxStyle;

class QtMessageBoxesTest : public testing::Test {
  protected:
    /// Calls `act` with the dialog that opens next.
    void WhenOpen(std::function<void(QDialog&)> act) {
        QTimer::singleShot(0, &test_, [this, act] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            dialog != nullptr ? act(*dialog) : WhenOpen(act);
        });
    }
    /// Leaves no window of the program active, as when the user has switched to another program.
    static void TakeKeyboardAway() {
        QWidget other;
        other.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
        other.hide();
        EXPECT_EQ(QApplication::activeWindow(), nullptr);
    }
    BoxAnswer AnswerBy(Qt::Key key, BoxStyle style, QMessageBox::Icon icon) {
        WhenOpen([=](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.windowTitle(), "Title");
            EXPECT_EQ(box.text(), "<b>not bold</b>\nsecond line");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            QTest::keyClick(&dialog, key);
        });
        return boxes_.MsgBox("<b>not bold</b>\r\nsecond line", style, "Title");
    }

    platform::QtMessageBoxes boxes_;
    QObject test_;
};

}  // namespace

TEST_F(QtMessageBoxesTest, SaysAndAsks) {
    const auto say = BoxStyle::Information;
    const auto ask = BoxStyle::StopYesNo;
    EXPECT_EQ(AnswerBy(Qt::Key_Return, say, QMessageBox::Information), BoxAnswer::Ok);
    EXPECT_EQ(AnswerBy(Qt::Key_Escape, say, QMessageBox::Information), BoxAnswer::Ok);
    EXPECT_EQ(AnswerBy(Qt::Key_Return, ask, QMessageBox::Critical), BoxAnswer::Yes);
    EXPECT_EQ(AnswerBy(Qt::Key_Escape, ask, QMessageBox::Critical), BoxAnswer::No);
}

TEST_F(QtMessageBoxesTest, OutliveTheirWindow) {
    for (const bool input : {false, true}) {
        auto* const window = new QWidget;
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        WhenOpen([window](QDialog& box) {
            EXPECT_EQ(box.parentWidget(), window);
            delete window;
        });
        if (input) {
            EXPECT_EQ(boxes_.InputBox("Prompt", "Title"), "");
        } else {
            EXPECT_EQ(boxes_.MsgBox("Sure?", BoxStyle::StopYesNo, "Title"), BoxAnswer::No);
        }
    }
}

TEST_F(QtMessageBoxesTest, BelongToTheActiveWindow) {
    QMainWindow main_window;
    main_window.show();
    TakeKeyboardAway();
    const auto owner_of_box = [&] {
        QWidget* owner = nullptr;
        WhenOpen([&](QDialog& box) {
            owner = box.parentWidget();
            QTest::keyClick(&box, Qt::Key_Return);
        });
        boxes_.MsgBox("Done.", BoxStyle::Information, "Title");
        return owner;
    };
    EXPECT_EQ(owner_of_box(), &main_window);
    QDialog dialog(&main_window);
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    TakeKeyboardAway();
    EXPECT_EQ(owner_of_box(), &dialog);
    QDialog over(&dialog);  // lies over the modal one and can be used, too
    over.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&over));
    EXPECT_EQ(owner_of_box(), &over);
}
