#include "widgets/controls.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "widgets/readable.h"
#include "widgets/twips.h"

namespace ui {

void PlaceTwips(QWidget* control, int left, int top, int width, int height) {
    control->setGeometry(Twips(left), Twips(top), Twips(width), Twips(height));
}

QLabel* MakeLabel(const char* name, const QString& caption, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* MakeParagraph(const char* name, const QString& text, QWidget* parent) {
    QLabel* label = MakeLabel(name, text, parent);
    label->setWordWrap(true);
    return label;
}

QLineEdit* MakeSearchBox(const char* name, const QString& hint, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(QLatin1String(name));
    box->setPlaceholderText(hint);
    box->setClearButtonEnabled(true);
    KeepReadable(box, QPalette::Base);
    return box;
}

QPushButton* MakeFormButton(const char* name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

QPushButton* MakeIconButton(const char* name, Picture picture, const QString& what,
                            QWidget* parent) {
    QPushButton* button = MakeFormButton(name, "", parent);
    button->setIcon(ButtonIcon(picture));
    button->setIconSize({Twips(300), Twips(300)});
    button->setToolTip(what);
    button->setAccessibleName(what);
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
