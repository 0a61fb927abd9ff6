#pragma once

#include <QWidgetItem>

namespace ui {

/// A layout item that aligns its widget to whole screen pixels even at a scale of 125, 150 or 175
/// %. A thin line between two rows of screen pixels would disappear.
class PixelGridItem : public QWidgetItem {
  public:
    using QWidgetItem::QWidgetItem;

    void setGeometry(const QRect& room) override;
};

}  // namespace ui
