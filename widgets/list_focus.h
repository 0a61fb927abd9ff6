#pragma once

class QAbstractItemView;

namespace ui {

/// Paints a frame around a list that has the focus but no selected row to show it. Call this at the
/// end of the list's paint event.
void PaintFocus(QAbstractItemView& list);

}  // namespace ui
