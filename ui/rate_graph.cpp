#include "ui/rate_graph.h"

#include <QPainter>
#include <QPalette>
#include <algorithm>

#include "platform/byte_size.h"
#include "platform/qt/local_text.h"
#include "widgets/contrast.h"
#include "widgets/label_font.h"
#include "widgets/twips.h"

namespace ui {

namespace {
constexpr std::size_t kSeconds = 60;
// Lengths in twips.
constexpr int kTextHeight = 195;
constexpr int kMargin = 75;
/// The least rate that fills the graph, in bytes per second: a few bytes must not look like a
/// flood.
constexpr std::int32_t kLeastScale = 1024;

QString RateText(std::int32_t bytes_per_second) {
    return platform::FromBytes(platform::StrFormatByteSize(bytes_per_second) + "/s");
}

}  // namespace

RateGraph::RateGraph(QWidget* parent) : QWidget(parent), rates_(kSeconds, 0) {
    setAccessibleName("Bytes per second in the last minute");
    setToolTip(accessibleName());
}

void RateGraph::Sample(std::int32_t total_bytes) {
    const bool was_quiet = std::ranges::all_of(rates_, [](std::int32_t rate) { return rate == 0; });
    const std::int32_t last = last_total_.value_or(total_bytes);
    const std::int32_t rate = total_bytes < last ? total_bytes : total_bytes - last;
    last_total_ = total_bytes;
    rates_.pop_front();
    rates_.push_back(rate);
    if (was_quiet && rate == 0) return;
    setAccessibleDescription(RateText(rate));
    update();
}

void RateGraph::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const std::int32_t peak = std::max(kLeastScale, *std::ranges::max_element(rates_));
    const QRect area = rect().adjusted(0, 0, -Twips(kMargin), 0);
    const double bar = static_cast<double>(area.width()) / kSeconds;
    const int text_height = Twips(kTextHeight);
    const int room = area.height() - text_height - 1;
    QColor colour = palette().color(QPalette::Highlight);
    colour.setAlphaF(0.75F);
    for (std::size_t i = 0; i < rates_.size(); ++i) {
        if (rates_[i] == 0) continue;
        const double size = std::max(1.0, static_cast<double>(rates_[i]) / peak * room);
        const double left = static_cast<double>(i) * bar;
        painter.fillRect(QRectF(left, area.bottom() - size, bar, size), colour);
    }
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.3F);
    painter.fillRect(QRect(0, area.bottom(), area.width(), 1), line);

    if (rates_.back() == 0) return;
    painter.setFont(SmallLabelFont());
    painter.setPen(
        QuietText(palette().color(QPalette::WindowText), {palette().color(QPalette::Window)}));
    painter.drawText(QRect(0, 1, area.width(), text_height), Qt::AlignRight | Qt::AlignTop,
                     RateText(rates_.back()));
}

}  // namespace ui
