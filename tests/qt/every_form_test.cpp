#include <QAbstractScrollArea>
#include <QAccessible>
#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <set>

#include "forms/frm_new.h"
#include "forms/report_dialog.h"
#include "forms/search_dialog.h"
#include "forms/z_dir.h"
#include "forms/z_filter.h"
#include "tests/qt/form_portrait.h"
#include "tests/qt/window_bench.h"
#include "ui/frm_pause.h"
#include "widgets/elided_label.h"

namespace {

template <typename... Kinds>
bool IsAny(const QWidget* widget) {
    return ((qobject_cast<const Kinds*>(widget) != nullptr) || ...);
}

bool IsControl(const QWidget* widget) {
    return IsAny<QAbstractButton, QLineEdit, QComboBox, QAbstractScrollArea, QLabel>(widget);
}

/// The visible controls of a form, without the parts of compound controls.
std::vector<QWidget*> ControlsOf(const QWidget& form) {
    std::vector<QWidget*> controls;
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        if (!IsControl(widget) || !widget->isVisible() || widget->window() != &form) continue;
        const QWidget* part_of = widget->parentWidget();
        while (part_of != &form && !IsControl(part_of))
            part_of = part_of->parentWidget();
        if (part_of == &form) controls.push_back(widget);
    }
    return controls;
}

QRect PlaceOf(const QWidget* control) {
    return {control->mapTo(control->window(), QPoint()), control->size()};
}

/// Whether the whole text fits into the control's width.
bool HasRoomForText(const QWidget* control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
        constexpr int kFlags = Qt::TextWordWrap | Qt::TextShowMnemonic;
        const QRect text =
            button->fontMetrics().boundingRect({QPoint(), control->size()}, kFlags, button->text());
        return button->rect().contains(QRect(QPoint(), text.size()));
    }
    const auto* label = qobject_cast<const QLabel*>(control);
    if (label == nullptr || IsAny<ui::ElidedLabel>(label)) return true;
    return label->wordWrap() ? label->heightForWidth(label->width()) <= label->height()
                             : label->sizeHint().width() <= label->width();
}

void ExpectGoodControls(const QWidget& form) {
    const auto controls = ControlsOf(form);
    EXPECT_GE(controls.size(), 3U);
    for (const QWidget* control : controls) {
        SCOPED_TRACE(control->objectName().toStdString() + ", " +
                     control->metaObject()->className());
        EXPECT_TRUE(form.rect().contains(PlaceOf(control))) << "it is cut off";
        EXPECT_TRUE(HasRoomForText(control));
        for (const QWidget* other : controls) {
            EXPECT_TRUE(other == control || !PlaceOf(other).intersects(PlaceOf(control)))
                << "it overlaps " << other->objectName().toStdString();
        }
        if (control->focusPolicy() == Qt::NoFocus) continue;
        EXPECT_NE(QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control))
                      ->text(QAccessible::Name),
                  "");
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        EXPECT_FALSE(button != nullptr && button->text().isEmpty() && button->toolTip().isEmpty())
            << "neither caption nor tooltip says what it does";
    }
}

void ExpectTabReachesAll(QWidget& form) {
    std::set<const QWidget*> reached;
    for (int presses = 0; presses < 40; ++presses) {
        QTest::keyClick(form.focusWidget() != nullptr ? form.focusWidget() : &form, Qt::Key_Tab);
        for (const QWidget* at = form.focusWidget(); at != nullptr; at = at->parentWidget())
            reached.insert(at);
    }
    for (const QWidget* control : ControlsOf(form)) {
        const bool takes_tab = (control->focusPolicy() & Qt::TabFocus) != 0;
        EXPECT_TRUE(!takes_tab || !control->isEnabled() || reached.contains(control))
            << control->objectName().toStdString() << " is not reached by Tab";
    }
}

class EveryForm : public bench::WindowTest {
  protected:
    ~EveryForm() override { QApplication::setFont(usual_); }

    const QFont usual_ = QApplication::font();
};

using Make = std::function<QDialog*(QWidget*)>;
const Make kDialogs[] = {
    [](QWidget* parent) { return new ui::frmNew(parent); },
    [](QWidget* parent) { return new ui::zDir(parent, [](const std::string&) {}); },
    [](QWidget* parent) { return ui::zFilter::ShowOver(parent); },
    [](QWidget* parent) { return ui::ReportDialog::ShowOver(parent); },
    [](QWidget* parent) { return ui::SearchDialog::ShowOver(parent); },
    [](QWidget* parent) { return new ui::frmPause(parent); }};

TEST_F(EveryForm, FitsAndWorksByKeyboardAtTwoFontSizes) {
    std::vector<double> widths;
    for (const int size : {1, 2}) {
        QFont font = usual_;
        font.setPixelSize(QFontInfo(usual_).pixelSize() * size);
        QApplication::setFont(font);
        Open();
        const auto look = [&](QWidget& form) {
            SCOPED_TRACE(form.windowTitle().toStdString() + " at size " + std::to_string(size));
            ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
            ExpectGoodControls(form);
            ExpectTabReachesAll(form);
            widths.push_back(form.width());
        };
        look(Window());
        for (const Make& make : kDialogs) {
            const QPointer<QDialog> dialog = make(&Window());
            dialog->show();
            look(*dialog);
            if (auto* options = dialog->findChild<QPushButton*>("Command6")) {
                options->click();
                look(*dialog);
            }
            QTest::keyClick(dialog, Qt::Key_Escape);
            EXPECT_TRUE(dialog == nullptr || !dialog->isVisible()) << "Escape closes it";
            delete dialog.data();
        }
        holder.Reload();
    }
    // All but the first, for which the screen is too small, grow with the desktop's font.
    for (std::size_t i = 1, forms = widths.size() / 2; i < forms; ++i)
        EXPECT_NEAR(widths[forms + i] / widths[i], 2, 0.2) << i;
}

#ifndef _WIN32  // whose style arranges some controls otherwise

/// Compares the forms with the portraits that were approved. After an intended change, copy the
/// file that the failure names over the approved one, and read the difference.
TEST_F(EveryForm, LooksAsApproved) {
    Open();
    std::vector<portrait::Line> lines = portrait::Of(Window());
    for (const Make& make : kDialogs) {
        const std::unique_ptr<QDialog> dialog(make(&Window()));
        dialog->show();
        if (auto* options = dialog->findChild<QPushButton*>("Command6")) options->click();
        std::ranges::move(portrait::Of(*dialog), std::back_inserter(lines));
    }
    portrait::ExpectApproved(lines, VANTORIN_PORTRAITS);
}

#endif

}  // namespace
