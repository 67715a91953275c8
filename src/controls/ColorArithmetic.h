#pragma once

#include <QColor>
#include <cstdint>

namespace controls {

/// A colour as the settings file stores it, 0xBBGGRR, and back.
QColor colorFromStored(std::uint32_t stored);
std::uint32_t storedFromColor(const QColor& color);

/// `share` of 1 gives `over`, 0 gives `ground`.
QColor mixedColor(const QColor& ground, const QColor& over, float share);

/// Relative luminance, 0 to 1, and how well a text reads on a ground, 1 (not at all) to 21; both as WCAG 2.1
/// defines them. 4.5 is enough for running text.
double luminance(const QColor& color);
double contrastRatio(const QColor& one, const QColor& other);

/// True for a ground that wants light texts.
bool isDark(const QColor& ground);

/// What a text and what a mark needs: a line, a frame, a drawing.
inline constexpr double kTextContrast = 4.5;
inline constexpr double kMarkContrast = 3.0;

/// The colour itself when it reads on the ground, else moved towards white or black until it does.
QColor readableOn(const QColor& color, const QColor& ground, double leastContrast = kTextContrast);

/// For a colour made for white paper: the colour itself on light grounds; on dark ones as light as it was
/// dark, with its hue, and lighter where it would not read.
QColor mirroredOn(const QColor& color, const QColor& ground);

}  // namespace controls
