#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "platform/qt/local_text.h"
#include "tests/fakes/fake_loop.h"
#include "tests/fakes/fake_main_window.h"
#include "tests/fakes/fake_system.h"

/// Forms as real widgets, on an in-memory system and main window. Tests find controls by name and
/// operate them with keys and clicks.
class FormTest : public testing::Test {
  protected:
    template <typename Control>
    static Control* Find(QWidget& form, const char* name) {
        auto* control = form.findChild<Control*>(name);
        if (control == nullptr) throw std::logic_error(std::string("no control named ") + name);
        return control;
    }
    static void Show(QWidget& form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    /// Waits long enough for a busy machine.
    static bool WaitFor(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 20'000);
    }
    static void Click(QWidget& form, const char* name) {
        QTest::mouseClick(Find<QPushButton>(form, name), Qt::LeftButton);
    }
    /// Types `text` in place of the box's text.
    static void Retype(QWidget* box, const QString& text) {
        box->setFocus();
        QTest::keySequence(box, QKeySequence::SelectAll);
        QTest::keyClick(box, Qt::Key_Delete);
        QTest::keyClicks(box, text);
    }
    static std::vector<std::string> ItemsOf(QWidget& form, const char* name) {
        const auto* list = Find<QListWidget>(form, name);
        std::vector<std::string> items;
        items.reserve(static_cast<std::size_t>(list->count()));
        for (int i = 0; i < list->count(); ++i)
            items.push_back(platform::ToBytes(list->item(i)->text()));
        return items;
    }
    /// Ends the tests if the model announces its changes wrongly, which can crash a view.
    static void CheckModel(QAbstractItemModel& model) {
        constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;
        new QAbstractItemModelTester(&model, kFatal, &model);
    }
    /// Expects this to be the last message box.
    void ExpectAsked(const char* message, platform::BoxStyle style, const char* title) {
        ASSERT_FALSE(system.boxes.asked.empty());
        EXPECT_EQ(system.boxes.asked.back().message, message);
        EXPECT_EQ(system.boxes.asked.back().style, style);
        EXPECT_EQ(system.boxes.asked.back().title, title);
    }
    /// Destroys dialogs that have called `deleteLater`.
    static void RunDeletions() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    fakes::FakeLoop loop;
    fakes::FakeSystem system;
    fakes::FakeMainWindow window{loop};
};
