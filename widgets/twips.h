#pragma once

namespace ui {

/// How much larger than usual forms are: with the desktop's font, from its usual size on.
double FormScale();

/// Lengths in twips (1/1440 inch) as device-independent pixels: 15 twips are one pixel at the usual
/// size of the desktop's font, and Qt scales pixels with the screen.
int Twips(int twips);

/// The other way round.
int InTwips(int pixels);

/// At least `pixels`, and whole on screens that show them at 125, 150 or 175 %: a line drawn
/// between two rows of a screen is lost.
int OnPixelGrid(int pixels);

}  // namespace ui
