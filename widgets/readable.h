#pragma once

#include <QPalette>

class QWidget;

namespace ui {

/// Keeps the disabled text and the placeholder text of `widget` readable on the colour of the
/// `background` role, also when the desktop's colours change.
void KeepReadable(QWidget* widget, QPalette::ColorRole background);

}  // namespace ui
