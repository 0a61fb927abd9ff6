#pragma once

#include <QLabel>

namespace ui {

/// A one-line label that shortens a long text in its middle and shows the whole of it in a tooltip.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace ui
