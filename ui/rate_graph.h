#pragma once

#include <QWidget>
#include <cstdint>
#include <deque>
#include <optional>

namespace ui {

/// Draws the bytes received in each second of the last minute.
class RateGraph : public QWidget {
    Q_OBJECT

  public:
    explicit RateGraph(QWidget* parent);

    /// Call this once a second with the number of bytes received so far. The first call only sets
    /// the starting point. A number below the last one means that a new crawl has started.
    void Sample(std::int32_t total_bytes);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::deque<std::int32_t> rates_;
    std::optional<std::int32_t> last_total_;  ///< not set before the first sample
};

}  // namespace ui
