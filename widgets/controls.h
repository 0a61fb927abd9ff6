#pragma once

#include <QString>
#include <QWidget>
#include <initializer_list>

class QLabel;
class QPushButton;

namespace ui {

/// Places a control by the lengths, in twips, that the forms are designed in.
void PlaceTwips(QWidget* control, int left, int top, int width, int height);

/// A label that shows `caption` as it stands and breaks its line where it must.
QLabel* MakeCaption(const char* name, const QString& caption, QWidget* parent);

/// A button that Enter presses only while it has the focus.
QPushButton* MakeFormButton(const char* name, const QString& caption, QWidget* parent);

/// The order in which the Tab key visits the controls of a form.
void SetTabOrder(std::initializer_list<QWidget*> controls);

}  // namespace ui
