#include "controls/TickBox.h"

#include <QPainter>
#include <QPalette>

#include "controls/ListColors.h"

namespace controls {

void paintTickBox(QPainter& painter, const QRect& rect, const QPalette& palette, TickBoxState state) {
    // Styles draw this for the ground of a window; on the dark ground of a list some of theirs cannot be
    // seen.
    const QRectF box = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    const ListColors colors(palette);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(state.ticked ? accent : state.hovered ? colors.secondaryText : colors.checkBoxFrame);
    painter.setBrush(state.ticked ? accent : palette.color(QPalette::Base));
    painter.drawRoundedRect(box, 2.5, 2.5);
    if (state.ticked) {
        const QPointF tick[] = {{box.left() + box.width() * 0.23, box.top() + box.height() * 0.53},
                                {box.left() + box.width() * 0.42, box.top() + box.height() * 0.72},
                                {box.left() + box.width() * 0.78, box.top() + box.height() * 0.30}};
        painter.setPen(QPen(palette.color(QPalette::Active, QPalette::HighlightedText), 1.7, Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(tick, 3);
    }
    painter.restore();
}

}  // namespace controls
