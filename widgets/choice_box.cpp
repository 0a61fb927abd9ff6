#include "widgets/choice_box.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include "widgets/choice_box_access.h"

namespace ui {

namespace {

bool Steps(const QKeyEvent& event) {
    return event.key() == Qt::Key_Up || event.key() == Qt::Key_Down ||
           event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown;
}

}  // namespace

ChoiceBox::ChoiceBox(const char* name, const QString& what, QWidget* parent) : QComboBox(parent) {
    InstallChoiceBoxAccess();
    setObjectName(QLatin1String(name));
    setAccessibleName(what);
    setFocusPolicy(Qt::StrongFocus);  // not by the wheel
}

void ChoiceBox::MakeEditable() {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);  // it would turn a typed 1 into 10
    lineEdit()->setAccessibleName(accessibleName());
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    if (Steps(*event)) GoToTyped();
    QComboBox::keyPressEvent(event);
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        GoToTyped();
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

void ChoiceBox::showPopup() {
    GoToTyped();
    QComboBox::showPopup();
}

void ChoiceBox::GoToTyped() {
    const QString typed = currentText();
    const int row = findText(typed);
    if (row == currentIndex()) return;
    setCurrentIndex(row);
    setEditText(typed);
}

}  // namespace ui
