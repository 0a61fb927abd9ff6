#pragma once

namespace ui {

/// The scale of the forms: the size of the desktop's font relative to its usual size, between 1 and
/// 3.
double FormScale();

/// Converts twips (1/1440 inch) to device-independent pixels. 15 twips are one pixel at the usual
/// size of the desktop's font. Qt scales pixels with the screen.
int Twips(int twips);

/// Converts pixels to twips.
int InTwips(int pixels);

/// `pixels` rounded up to a whole number of screen pixels at 125, 150 and 175 %. A thin line
/// between two rows of screen pixels would disappear.
int OnPixelGrid(int pixels);

}  // namespace ui
