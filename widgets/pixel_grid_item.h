#pragma once

#include <QWidgetItem>

namespace ui {

/// A place in a layout whose widget begins and ends with whole pixels of the screen, also where
/// that shows the program at 125, 150 or 175 %: a line drawn between two rows of a screen is lost.
class PixelGridItem : public QWidgetItem {
  public:
    using QWidgetItem::QWidgetItem;

    void setGeometry(const QRect& room) override;
};

}  // namespace ui
