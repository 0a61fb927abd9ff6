#include "platform/qt/qt_message_boxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>

namespace {

using platform::BoxAnswer;
using platform::BoxStyle;

class QtMessageBoxesTest : public testing::Test {
  protected:
    /// Does something with the dialog that opens next in this test.
    void WhenOpen(std::function<void(QDialog&)> act) {
        QTimer::singleShot(0, &test_, [this, act] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            dialog != nullptr ? act(*dialog) : WhenOpen(act);
        });
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
    std::string EnterBy(Qt::Key key) {
        WhenOpen([=](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Title");
            const auto* const prompt = dialog.findChild<QLabel*>();
            EXPECT_EQ(prompt->text(), "<i>Prompt</i>");
            EXPECT_EQ(prompt->textFormat(), Qt::PlainText);
            dynamic_cast<QInputDialog&>(dialog).setTextValue("some text");
            QTest::keyClick(&dialog, key);
        });
        return boxes_.InputBox("<i>Prompt</i>", "Title");
    }

    platform::QtMessageBoxes boxes_;
    QObject test_;
};

}  // namespace

TEST_F(QtMessageBoxesTest, AsksInFourStyles) {
    const struct {
        BoxStyle style;
        QMessageBox::Icon icon;
        BoxAnswer yes, no;
    } cases[] = {
        {BoxStyle::Information, QMessageBox::Information, BoxAnswer::Ok, BoxAnswer::Ok},
        {BoxStyle::InformationYesNo, QMessageBox::Information, BoxAnswer::Yes, BoxAnswer::No},
        {BoxStyle::Stop, QMessageBox::Critical, BoxAnswer::Ok, BoxAnswer::Ok},
        {BoxStyle::StopYesNo, QMessageBox::Critical, BoxAnswer::Yes, BoxAnswer::No},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(AnswerBy(Qt::Key_Return, c.style, c.icon), c.yes);
        EXPECT_EQ(AnswerBy(Qt::Key_Escape, c.style, c.icon), c.no);
    }
}

TEST_F(QtMessageBoxesTest, TakesALineOfText) {
    EXPECT_EQ(EnterBy(Qt::Key_Return), "some text");
    EXPECT_EQ(EnterBy(Qt::Key_Escape), "");
}

TEST_F(QtMessageBoxesTest, OutliveTheirWindow) {
    for (const bool input : {false, true}) {
        auto* const window = new QWidget;
        window->show();
        QApplication::setActiveWindow(window);
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
