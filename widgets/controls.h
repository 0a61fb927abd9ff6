#pragma once

#include <QString>
#include <QWidget>
#include <initializer_list>

#include "widgets/icons.h"

class QLabel;
class QPushButton;

namespace ui {

/// Places a control by the lengths, in twips, that the forms are designed in.
void PlaceTwips(QWidget* control, int left, int top, int width, int height);

/// A label that shows `caption` as it stands.
QLabel* MakeLabel(const char* name, const QString& caption, QWidget* parent);

/// The same for a text of several lines, broken to the label's width.
QLabel* MakeParagraph(const char* name, const QString& text, QWidget* parent);

/// A button that Enter presses only while it has the focus.
QPushButton* MakeFormButton(const char* name, const QString& caption, QWidget* parent);

/// A button with a picture in place of a caption; `what` it does shows in its tooltip.
QPushButton* MakeIconButton(const char* name, Picture picture, const QString& what,
                            QWidget* parent);

/// The order in which the Tab key visits the controls of a form.
void SetTabOrder(std::initializer_list<QWidget*> controls);

}  // namespace ui
