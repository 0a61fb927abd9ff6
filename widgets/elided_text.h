#pragma once

#include <QFontMetrics>
#include <QString>

namespace ui {

/// `text` as one line, without what is more than any screen shows.
QString OneLine(const QString& text);

/// `text` on one line of at most `width` pixels, shortened in its middle: the host and the file's
/// name are what tells addresses apart. Takes the same time for texts of any length.
QString ElideMiddle(const QString& text, const QFontMetrics& metrics, int width);

/// A text for a tooltip: as it stands, no markup in it obeyed, in lines that fit a screen. What is
/// longer than anyone reads is left out.
QString TooltipText(const QString& text);

}  // namespace ui
