#pragma once

#include <QFont>

namespace ui {

/// The face of all labels: Verdana, or where it is missing the face with its metrics. Sized in
/// twips, so that it keeps its proportion to the forms.
QFont LabelFont();

/// The face of hints below a box.
QFont SmallLabelFont();

}  // namespace ui
