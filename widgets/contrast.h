#pragma once

#include <QColor>
#include <QPalette>
#include <initializer_list>

namespace ui {

/// How well two colours are told apart, from 1 (not at all) to 21 (black and white), as the rules
/// for accessible web pages count it.
double Contrast(const QColor& a, const QColor& b);

/// `share` (0 to 1) of `colour` mixed into `background`.
QColor Mix(const QColor& colour, const QColor& background, double share);

/// What every second row of a list is painted in, so that the eye keeps the line. Made of the
/// list's own colours: the desktop's colour for this may be too strong to read on.
QColor Stripe(const QPalette& palette);

/// A paler `text` for what only accompanies: row numbers, hints. It is mixed with the first of
/// `backgrounds` and readable (a contrast of 4.5) on each of them, where `text` itself is.
QColor QuietText(const QColor& text, std::initializer_list<QColor> backgrounds);

/// `colour`, as much lighter or darker as it takes to be readable on `background`.
QColor ReadableText(const QColor& colour, const QColor& background);

}  // namespace ui
