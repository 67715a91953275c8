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
    base_ = base;
    alternateBase_ = palette.color(QPalette::AlternateBase);
    secondaryText = readableOn(readableOn(mixedColor(base, text, 0.72F), base), alternateBase_);
    line = mixedColor(base, text, 0.14F);
    // The same share of a colour is less to the eye on a dark ground.
    hover = withAlpha(accent, dark ? kHoverShare * 2 : kHoverShare);
    selected = withAlpha(accent, dark ? kSelectedShare * 2 : kSelectedShare);
    selectedHovered = withAlpha(accent, dark ? kSelectedHoveredShare * 2 : kSelectedHoveredShare);
    checkBoxFrame = readableOn(mixedColor(base, text, 0.5F), base, kMarkContrast);
    const QColor hardest = groundOf({.alternate = true, .selected = true, .hovered = true});
    focusFrame = readableOn(mixedColor(base, accent, 0.75F), hardest, kMarkContrast);
    selectionMark = readableOn(accent, hardest, kMarkContrast);
    groupTitle = readableOn(readableOn(mixedColor(text, accent, dark ? 0.35F : 0.55F), base), alternateBase_);
    headerGround = base;
}

QColor ListColors::groundOf(RowState state) const {
    const QColor ground = state.alternate ? alternateBase_ : base_;
    if (!state.selected && !state.hovered) return ground;
    const QColor& tint = !state.selected ? hover : state.hovered ? selectedHovered : selected;
    return mixedColor(ground, QColor(tint.rgb()), tint.alphaF());
}

}  // namespace controls
