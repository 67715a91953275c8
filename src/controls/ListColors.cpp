#include "controls/ListColors.h"

#include "controls/ColorArithmetic.h"

#include <QPalette>

namespace controls {

namespace {

constexpr float kHoverShare = 0.06F;
constexpr float kSelectedShare = 0.14F;
constexpr float kSelectedHoveredShare = 0.20F;

QColor withAlpha(QColor color, float alpha) {
    color.setAlphaF(alpha);
    return color;
}

}  // namespace

ListColors::ListColors(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    // The selection keeps its colour while another pane has the focus: it is what the next command works on.
    const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    const bool dark = base.lightnessF() < text.lightnessF();
    secondaryText = mixedColor(base, text, 0.72F);
    line = mixedColor(base, text, 0.14F);
    // The same share of a colour is less to the eye on a dark ground.
    hover = withAlpha(accent, dark ? kHoverShare * 2 : kHoverShare);
    selected = withAlpha(accent, dark ? kSelectedShare * 2 : kSelectedShare);
    selectedHovered = withAlpha(accent, dark ? kSelectedHoveredShare * 2 : kSelectedHoveredShare);
    checkBoxFrame = mixedColor(base, text, 0.5F);
    focusFrame = mixedColor(base, accent, 0.75F);
    groupTitle = mixedColor(text, accent, dark ? 0.35F : 0.55F);
    headerGround = base;
}

}  // namespace controls
