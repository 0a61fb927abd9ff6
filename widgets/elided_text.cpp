#include "widgets/elided_text.h"

#include <QStringList>
#include <algorithm>

#include "platform/qt/local_text.h"

namespace ui {

namespace {

/// No line on a screen shows more characters than this.
constexpr int kMostCharacters = 2000;

/// An address has no blanks to break its line at.
constexpr int kTooltipLine = 100;

constexpr QChar kEllipsis(0x2026);

}  // namespace

QString ElideMiddle(const QString& text, const QFontMetrics& metrics, int width) {
    QString shown = text;
    if (shown.size() > kMostCharacters) {
        shown = shown.left(kMostCharacters / 2) + kEllipsis + shown.right(kMostCharacters / 2);
    }
    for (QChar& c : shown) {
        if (c < QChar(' ')) c = QChar(' ');
    }
    return metrics.elidedText(shown, Qt::ElideMiddle, width);
}

QString ElideMiddle(const std::string& bytes, const QFontMetrics& metrics, int width) {
    if (bytes.size() <= kMostCharacters) {
        return ElideMiddle(platform::FromBytes(bytes), metrics, width);
    }
    const std::string ends = bytes.substr(0, kMostCharacters / 2) + "..." +
                             bytes.substr(bytes.size() - kMostCharacters / 2);
    return ElideMiddle(platform::FromBytes(ends), metrics, width);
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
