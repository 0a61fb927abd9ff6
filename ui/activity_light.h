#pragma once

#include <QWidget>

namespace ui {

/// Shows at a glance whether a crawl runs: a green disc with an arrow, or an empty ring.
class ActivityLight : public QWidget {
    Q_OBJECT

  public:
    explicit ActivityLight(QWidget* parent);

    void SetRunning(bool running);
    bool Running() const { return running_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Describe();

    bool running_ = false;
};

}  // namespace ui
