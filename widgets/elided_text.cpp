#include "widgets/elided_text.h"

#include <QStringList>
#include <algorithm>

namespace ui {

namespace {

/// No line on a screen shows more characters.
constexpr int kMostCharacters = 2000;

/// Tooltip lines are broken at this length, because an address has no blanks to break at.
constexpr int kTooltipLine = 100;

constexpr QChar kEllipsis(0x2026);

}  // namespace

QString OneLine(const QString& text) {
    QString line = text;
    if (line.size() > kMostCharacters) {
        line = line.left(kMostCharacters / 2) + kEllipsis + line.right(kMostCharacters / 2);
    }
    for (QChar& c : line) {
        if (c < QChar(' ')) c = QChar(' ');
    }
    return line;
}

QString ElideMiddle(const QString& text, const QFontMetrics& metrics, int width) {
    return metrics.elidedText(OneLine(text), Qt::ElideMiddle, width);
}

QString TooltipText(const QString& text) {
    QStringList lines;
    for (qsizetype at = 0; at < std::min<qsizetype>(text.size(), kMostCharacters);
         at += kTooltipLine) {
        lines += text.mid(at, kTooltipLine).toHtmlEscaped();
    }
    if (text.size() > kMostCharacters) lines += QString(kEllipsis);
    return "<p style='white-space:pre'>" + lines.join("<br>") + "</p>";
}

}  // namespace ui
