#pragma once

#include <QFont>

namespace ui {

/// The face of all labels: Verdana, or where it is missing the face with its metrics. Sized in
/// pixels, so that it keeps its proportion to lengths given in twips on every screen.
QFont LabelFont();

}  // namespace ui
