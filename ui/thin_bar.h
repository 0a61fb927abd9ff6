#pragma once

#include <QProgressBar>

namespace ui {

/// A thin progress bar without text that looks the same on every desktop. It is red if something
/// was lost.
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
