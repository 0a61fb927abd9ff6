#pragma once

#include <QWidget>
#include <cstdint>
#include <deque>
#include <optional>

namespace ui {

/// Draws how many bytes came in each second of the last minute.
class RateGraph : public QWidget {
    Q_OBJECT

  public:
    explicit RateGraph(QWidget* parent);

    /// To be called once a second with the bytes received so far. The first call only says where
    /// counting begins; a count below the last one is the start of another crawl.
    void Sample(std::int32_t total_bytes);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::deque<std::int32_t> rates_;
    std::optional<std::int32_t> last_total_;  ///< none before the first sample
};

}  // namespace ui
