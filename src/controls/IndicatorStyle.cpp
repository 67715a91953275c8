#include "controls/IndicatorStyle.h"

#include "controls/ListColors.h"
#include "controls/TickBox.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace controls {

namespace {

constexpr double kDisabledOpacity = 0.55;
constexpr double kDotShare = 0.42;  ///< diameter of a radio button's dot, as a part of its circle

QRect squareIn(const QRect& rect) {
    QRect square(0, 0, kTickBoxSide, kTickBoxSide);
    square.moveCenter(rect.center());
    return square;
}

void paintRadioButton(QPainter& painter, const QRect& rect, const QPalette& palette, TickBoxState state) {
    const QRectF circle = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const ListColors colors(palette);
    const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(state.ticked ? accent : state.hovered ? colors.secondaryText : colors.checkBoxFrame);
    painter.setBrush(state.ticked ? accent : palette.color(QPalette::Base));
    painter.drawEllipse(circle);
    if (!state.ticked) return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Active, QPalette::HighlightedText));
    const double radius = circle.width() * kDotShare / 2;
    painter.drawEllipse(circle.center(), radius, radius);
}

}  // namespace

IndicatorStyle::IndicatorStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void IndicatorStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const {
    const bool isRadioButton = element == PE_IndicatorRadioButton;
    const bool isHalf = option->state.testFlag(State_NoChange);
    if (isHalf || (!isRadioButton && element != PE_IndicatorCheckBox)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const TickBoxState state{option->state.testFlag(State_On), option->state.testFlag(State_MouseOver)};
    painter->save();
    if (!option->state.testFlag(State_Enabled)) painter->setOpacity(kDisabledOpacity);
    if (isRadioButton)
        paintRadioButton(*painter, squareIn(option->rect), option->palette, state);
    else
        paintTickBox(*painter, squareIn(option->rect), option->palette, state);
    painter->restore();
}

}  // namespace controls
