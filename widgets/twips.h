#pragma once

namespace ui {

/// Lengths in twips (1/1440 inch) as device-independent pixels: 15 twips are one pixel at 96 dpi,
/// and Qt scales pixels with the screen.
constexpr int Twips(int twips) {
    return (twips >= 0 ? twips + 7 : twips - 7) / 15;
}

}  // namespace ui
