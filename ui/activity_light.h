#pragma once

#include <QWidget>

namespace ui {

/// Shows at a glance whether a crawl is running: a light that is green, amber (paused) or off.
class ActivityLight : public QWidget {
    Q_OBJECT

  public:
    enum class State { Idle, Downloading, Paused };

    explicit ActivityLight(QWidget* parent);

    void Show(State state);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Describe();

    State state_ = State::Idle;
};

}  // namespace ui
