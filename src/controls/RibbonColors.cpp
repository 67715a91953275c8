#include "controls/RibbonColors.h"

namespace controls {
namespace {

QColor mixed(const QColor& ground, const QColor& over, float share) {
    return QColor::fromRgbF(ground.redF() + (over.redF() - ground.redF()) * share,
                            ground.greenF() + (over.greenF() - ground.greenF()) * share,
                            ground.blueF() + (over.blueF() - ground.blueF()) * share);
}

}  // namespace

RibbonColors::RibbonColors(const QPalette& palette)
    : strip(palette.color(QPalette::Active, QPalette::Window)),
      text(palette.color(QPalette::Active, QPalette::WindowText)),
      accent(palette.color(QPalette::Active, QPalette::Highlight)) {
    const bool dark = strip.lightness() < text.lightness();
    body = mixed(strip, Qt::white, dark ? 0.05F : 0.75F);
    line = mixed(body, text, dark ? 0.20F : 0.14F);
    secondaryText = mixed(body, text, 0.72F);
    disabledText = mixed(body, text, 0.45F);
    // On a dark ground an accent made for light ones is too dim for a line and a text.
    if (dark && accent.lightness() < 150) accent = mixed(accent, Qt::white, 0.35F);
    hover = mixed(body, accent, 0.10F);
    pressed = mixed(body, accent, 0.26F);
    checked = mixed(body, accent, 0.16F);
    checkedLine = mixed(body, accent, 0.60F);
}

}  // namespace controls
