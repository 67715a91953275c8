#include "controls/ColorArithmetic.h"

#include <algorithm>
#include <cmath>

namespace controls {

namespace {

constexpr double kDarkGround = 0.18;

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

}  // namespace

QColor colorFromStored(std::uint32_t stored) {
    return {static_cast<int>(stored & 0xFF), static_cast<int>(stored >> 8 & 0xFF),
            static_cast<int>(stored >> 16 & 0xFF)};
}

std::uint32_t storedFromColor(const QColor& color) {
    return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

QColor mixedColor(const QColor& ground, const QColor& over, float share) {
    const float rest = 1.0F - share;
    return QColor::fromRgbF(ground.redF() * rest + over.redF() * share,
                            ground.greenF() * rest + over.greenF() * share,
                            ground.blueF() * rest + over.blueF() * share);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrastRatio(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

bool isDark(const QColor& ground) {
    return luminance(ground) < kDarkGround;
}

QColor readableOn(const QColor& color, const QColor& ground, double leastContrast) {
    const bool towardsWhite = contrastRatio(Qt::white, ground) > contrastRatio(Qt::black, ground);
    const QColor end = towardsWhite ? Qt::white : Qt::black;
    for (int step = 0; step < 20; ++step) {
        // What is painted has eight bits a channel; so has what is measured.
        const QColor candidate = mixedColor(color, end, static_cast<float>(step) / 20.0F).rgb();
        if (contrastRatio(candidate, ground) >= leastContrast) return candidate;
    }
    return end;
}

QColor mirroredOn(const QColor& color, const QColor& ground) {
    if (!isDark(ground)) return color;
    const float lightness = std::max(color.lightnessF(), 1.0F - color.lightnessF());
    const float hue = std::max(color.hslHueF(), 0.0F);
    return readableOn(QColor::fromHslF(hue, color.hslSaturationF(), lightness), ground);
}

}  // namespace controls
