#pragma once

#include <QPalette>

class QWidget;

namespace ui {

/// Makes what `widget` shows while it is disabled, and the example in an empty box, readable on the
/// colour of `background`, now and whenever the desktop's colours change.
void KeepReadable(QWidget* widget, QPalette::ColorRole background);

}  // namespace ui
