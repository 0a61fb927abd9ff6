#pragma once

class QAbstractItemView;

namespace ui {

/// Frames a list that has the keyboard and no selected row to show it by. To be called at the end
/// of the list's paint event.
void PaintFocus(QAbstractItemView& list);

}  // namespace ui
