#pragma once

#include <QProgressBar>

namespace ui {

/// A thin progress bar without a text, in the same shape on every desktop. It turns red where
/// something was lost.
class ThinBar : public QProgressBar {
    Q_OBJECT

  public:
    ThinBar(const char* name, QWidget* parent);

    void SetAlarming(bool alarming);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool alarming_ = false;
};

}  // namespace ui
