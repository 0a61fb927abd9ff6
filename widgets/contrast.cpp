#include "widgets/contrast.h"

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr double kReadable = 4.5;
constexpr double kPalest = 0.55;
constexpr double kStep = 0.05;
/// The luminance of a background on which black and white have the same contrast.
constexpr double kMiddle = 0.18;
constexpr double kStripe = 0.04;

double Linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor Mix(const QColor& colour, const QColor& background, double share) {
    const auto channel = [share](float of_colour, float of_background) {
        return static_cast<float>(share * of_colour + (1 - share) * of_background);
    };
    return QColor::fromRgbF(channel(colour.redF(), background.redF()),
                            channel(colour.greenF(), background.greenF()),
                            channel(colour.blueF(), background.blueF()));
}

QColor Stripe(const QPalette& palette) {
    return Mix(palette.color(QPalette::Text), palette.color(QPalette::Base), kStripe);
}

QColor QuietText(const QColor& text, std::initializer_list<QColor> backgrounds) {
    for (double share = kPalest; share < 1; share += kStep) {
        const QColor mixed = Mix(text, *backgrounds.begin(), share);
        if (std::ranges::all_of(backgrounds, [&](const QColor& background) {
                return Contrast(mixed, background) >= kReadable;
            })) {
            return mixed;
        }
    }
    return text;
}

QColor ReadableText(const QColor& colour, const QColor& background) {
    const QColor away = Luminance(background) < kMiddle ? Qt::white : Qt::black;
    for (double share = 1; share > 0; share -= kStep) {
        const QColor mixed = Mix(colour, away, share);
        if (Contrast(mixed, background) >= kReadable) return mixed;
    }
    return away;
}

}  // namespace ui
