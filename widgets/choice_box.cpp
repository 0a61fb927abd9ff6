#include "widgets/choice_box.h"

#include <QWheelEvent>

namespace ui {

ChoiceBox::ChoiceBox(const char* name, QWidget* parent) : QComboBox(parent) {
    setObjectName(QLatin1String(name));
    setFocusPolicy(Qt::StrongFocus);  // without the wheel
}

void ChoiceBox::LetType() {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);  // would turn a typed 1 into 10
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace ui
