#include "widgets/controls.h"

#include <QLabel>
#include <QPushButton>

#include "widgets/twips.h"

namespace ui {

void PlaceTwips(QWidget* control, int left, int top, int width, int height) {
    control->setGeometry(Twips(left), Twips(top), Twips(width), Twips(height));
}

QLabel* MakeCaption(const char* name, const QString& caption, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QPushButton* MakeFormButton(const char* name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

void SetTabOrder(std::initializer_list<QWidget*> controls) {
    QWidget* previous = nullptr;
    for (QWidget* control : controls) {
        if (previous != nullptr) QWidget::setTabOrder(previous, control);
        previous = control;
    }
}

}  // namespace ui
