#pragma once

#include <QString>
#include <QWidget>
#include <initializer_list>

#include "widgets/icons.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace ui {

/// Places a control. Lengths are in twips, as in the design of the forms.
void PlaceTwips(QWidget* control, int left, int top, int width, int height);

/// A label that shows `caption` as plain text.
QLabel* MakeLabel(const char* name, const QString& caption, QWidget* parent);

/// The same for a text that wraps at the label's width.
QLabel* MakeParagraph(const char* name, const QString& text, QWidget* parent);

/// A search box that shows `hint` while it is empty and has a button that clears it.
QLineEdit* MakeSearchBox(const char* name, const QString& hint, QWidget* parent);

/// A button that Enter presses only while it has the focus.
QPushButton* MakeFormButton(const char* name, const QString& caption, QWidget* parent);

/// A button with a picture instead of a caption. `what` is its tooltip and its name for screen
/// readers.
QPushButton* MakeIconButton(const char* name, Picture picture, const QString& what,
                            QWidget* parent);

/// Sets the order in which the Tab key visits the controls of a form.
void SetTabOrder(std::initializer_list<QWidget*> controls);

}  // namespace ui
