#pragma once

#include <QFont>

namespace ui {

/// The font of all labels: Verdana, or the one with the same metrics if it is missing. Sized in
/// twips, so that it scales with the forms.
QFont LabelFont();

/// The font of hints below a box.
QFont SmallLabelFont();

}  // namespace ui
