#include "platform/qt/qt_message_boxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

namespace {

using platform::BoxAnswer;
using platform::BoxStyle;

class QtMessageBoxesTest : public testing::Test {
  protected:
    /// Does something with the dialog that opens next in this test.
    template <typename Dialog>
    void WhenOpen(std::function<void(Dialog&)> act) {
        QTimer::singleShot(0, &test_, [this, act] {
            auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                WhenOpen<Dialog>(act);
            } else {
                act(*dialog);
            }
        });
    }

    platform::QtMessageBoxes boxes_;

  private:
    QObject test_;
};

}  // namespace

TEST_F(QtMessageBoxesTest, AsksInFourStyles) {
    struct {
        BoxStyle style;
        QMessageBox::Icon icon;
        bool asks;
    } const cases[] = {
        {BoxStyle::Information, QMessageBox::Information, false},
        {BoxStyle::InformationYesNo, QMessageBox::Information, true},
        {BoxStyle::Stop, QMessageBox::Critical, false},
        {BoxStyle::StopYesNo, QMessageBox::Critical, true},
    };
    for (const auto& c : cases) {
        const auto answer = [&](const std::function<void(QMessageBox&)>& act) {
            WhenOpen<QMessageBox>([&](QMessageBox& box) {
                EXPECT_EQ(box.icon(), c.icon);
                EXPECT_EQ(box.windowTitle(), "Title");
                EXPECT_EQ(box.text(), "<b>not bold</b>\nsecond line");
                EXPECT_EQ(box.textFormat(), Qt::PlainText);
                act(box);
            });
            return boxes_.MsgBox("<b>not bold</b>\r\nsecond line", c.style, "Title");
        };
        const auto press = [](Qt::Key key) {
            return [key](QMessageBox& box) { QTest::keyClick(&box, key); };
        };
        const BoxAnswer no = c.asks ? BoxAnswer::No : BoxAnswer::Ok;
        const BoxAnswer yes = c.asks ? BoxAnswer::Yes : BoxAnswer::Ok;
        EXPECT_EQ(answer([](QMessageBox& box) { box.close(); }), no);
        EXPECT_EQ(answer(press(Qt::Key_Escape)), no);
        EXPECT_EQ(answer(press(Qt::Key_Return)), yes);
        if (!c.asks) continue;
        EXPECT_EQ(answer([](QMessageBox& box) { box.button(QMessageBox::No)->click(); }), no);
        EXPECT_EQ(answer([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }), yes);
    }
}

TEST_F(QtMessageBoxesTest, TakesALineOfText) {
    const auto enter = [&](const QString& text, Qt::Key last) {
        WhenOpen<QInputDialog>([=](QInputDialog& box) {
            EXPECT_EQ(box.windowTitle(), "Title");
            EXPECT_EQ(box.labelText(), "<i>Prompt</i>");
            for (const QLabel* label : box.findChildren<QLabel*>()) {
                EXPECT_EQ(label->textFormat(), Qt::PlainText);
            }
            box.setTextValue(text);
            QTest::keyClick(&box, last);
        });
        return boxes_.InputBox("<i>Prompt</i>", "Title");
    };
    EXPECT_EQ(enter("some text", Qt::Key_Return), "some text");
    EXPECT_EQ(enter("some text", Qt::Key_Escape), "");
}

TEST_F(QtMessageBoxesTest, OutliveTheirWindow) {
    for (const bool input : {false, true}) {
        auto window = std::make_unique<QWidget>();
        window->show();
        QApplication::setActiveWindow(window.get());
        ASSERT_EQ(QApplication::activeWindow(), window.get());
        WhenOpen<QDialog>([&](QDialog& box) {
            EXPECT_EQ(box.parentWidget(), window.get());
            window.reset();
        });
        if (input) {
            EXPECT_EQ(boxes_.InputBox("Prompt", "Title"), "");
        } else {
            EXPECT_EQ(boxes_.MsgBox("Sure?", BoxStyle::StopYesNo, "Title"), BoxAnswer::No);
        }
    }
}
