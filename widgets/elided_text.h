#pragma once

#include <QFontMetrics>
#include <QString>
#include <string>

namespace ui {

/// `text` on one line of at most `width` pixels, shortened in its middle: the host and the file's
/// name are what tells addresses apart. Takes the same time for texts of any length.
QString ElideMiddle(const QString& text, const QFontMetrics& metrics, int width);

/// The same for text in the local 8-bit encoding; only the part that can show is converted.
QString ElideMiddle(const std::string& bytes, const QFontMetrics& metrics, int width);

/// A text for a tooltip: as it stands, no markup in it obeyed, in lines that fit a screen. What is
/// longer than anyone reads is left out.
QString TooltipText(const QString& text);

}  // namespace ui
