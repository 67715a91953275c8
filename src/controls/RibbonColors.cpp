#include "controls/RibbonColors.h"

#include "controls/ColorArithmetic.h"

namespace controls {
RibbonColors::RibbonColors(const QPalette& palette)
    : strip(palette.color(QPalette::Active, QPalette::Window)),
      text(palette.color(QPalette::Active, QPalette::WindowText)),
      accent(palette.color(QPalette::Active, QPalette::Highlight)) {
    const bool dark = strip.lightness() < text.lightness();
    body = mixedColor(strip, Qt::white, dark ? 0.05F : 0.75F);
    line = mixedColor(body, text, dark ? 0.20F : 0.14F);
    secondaryText = readableOn(mixedColor(body, text, 0.72F), body);
    disabledText = mixedColor(body, text, 0.45F);
    // On a dark ground an accent made for light ones is too dim for a line and a text.
    if (dark && accent.lightness() < 150) accent = mixedColor(accent, Qt::white, 0.35F);
    currentTab = readableOn(accent, body);
    accent = readableOn(readableOn(accent, body, kMarkContrast), strip, kMarkContrast);
    hover = mixedColor(body, accent, 0.10F);
    pressed = mixedColor(body, accent, 0.26F);
    checked = mixedColor(body, accent, 0.16F);
    checkedLine = mixedColor(body, accent, 0.60F);
}

}  // namespace controls
