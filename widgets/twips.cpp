#include "widgets/twips.h"

#include <QApplication>
#include <QFontInfo>
#include <algorithm>
#include <cmath>

namespace ui {

namespace {
constexpr double kTwipsPerPixel = 15;
constexpr double kUsualFontPixels = 12;
constexpr double kLargestScale = 3;
constexpr int kGrid = 4;
}  // namespace

double FormScale() {
    static QFont known;
    static double scale = 0;
    if (scale == 0 || known != QApplication::font()) {
        known = QApplication::font();
        scale = std::clamp(QFontInfo(known).pixelSize() / kUsualFontPixels, 1.0, kLargestScale);
    }
    return scale;
}

int Twips(int twips) {
    return static_cast<int>(std::lround(twips * FormScale() / kTwipsPerPixel));
}

int InTwips(int pixels) {
    return static_cast<int>(std::lround(pixels * kTwipsPerPixel / FormScale()));
}

int OnPixelGrid(int pixels) {
    return (pixels + kGrid - 1) / kGrid * kGrid;
}

}  // namespace ui
