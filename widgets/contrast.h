#pragma once

#include <QColor>
#include <QPalette>
#include <initializer_list>

namespace ui {

/// The contrast of two colours, from 1 (none) to 21 (black and white), as defined by the Web
/// Content Accessibility Guidelines.
double Contrast(const QColor& a, const QColor& b);

/// A mix with a share (0 to 1) of `colour`; the rest is `background`.
QColor Mix(const QColor& colour, const QColor& background, double share);

/// The background of every second row of a list, which guides the eye. Mixed from the list's own
/// colours, because the desktop's colour for this may be too strong to read on.
QColor Stripe(const QPalette& palette);

/// A paler `text` for secondary information such as row numbers and hints. Mixed with the first of
/// `backgrounds`. It is readable (a contrast of 4.5) on each of them if `text` is.
QColor QuietText(const QColor& text, std::initializer_list<QColor> backgrounds);

/// `colour`, made lighter or darker until it is readable on `background`.
QColor ReadableText(const QColor& colour, const QColor& background);

}  // namespace ui
