#pragma once

#include <QFontMetrics>
#include <QString>

namespace ui {

/// `text` as one line, cut to what fits on any screen.
QString OneLine(const QString& text);

/// `text` on one line of at most `width` pixels. The middle is elided, because addresses differ in
/// the host and the file name. Takes the same time for texts of any length.
QString ElideMiddle(const QString& text, const QFontMetrics& metrics, int width);

/// `text` for a tooltip, with markup shown as text, in lines that fit on a screen. Cut to what
/// anyone would read.
QString TooltipText(const QString& text);

}  // namespace ui
