#include "controls/ListHeader.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionHeaderV2>

#include "controls/ListColors.h"

namespace controls {

namespace {

constexpr int kHeight = 26;
constexpr int kTextMargin = 6;
constexpr int kChevronSide = 12;

}  // namespace

void paintChevron(QPainter& painter, const QRectF& rect, qreal degrees, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.center());
    painter.rotate(degrees);
    const qreal reach = qMin(rect.width(), rect.height()) / 3;
    QPainterPath path;
    path.moveTo(-reach, -reach / 2);
    path.lineTo(0, reach / 2);
    path.lineTo(reach, -reach / 2);
    painter.setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.restore();
}

ListHeader::ListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setHighlightSections(false);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setTextElideMode(Qt::ElideRight);
    viewport()->setAttribute(Qt::WA_Hover);
}

QSize ListHeader::sizeHint() const {
    return {QHeaderView::sizeHint().width(), qMax(kHeight, fontMetrics().height() + 8)};
}

void ListHeader::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const ListColors colors(palette());
    painter.fillRect(event->rect(), colors.headerGround);
    for (int visual = 0; visual < count(); ++visual) {
        const int logical = logicalIndex(visual);
        const QRect rect(sectionViewportPosition(logical), 0, sectionSize(logical), viewport()->height());
        if (isSectionHidden(logical) || !rect.intersects(event->rect())) continue;
        painter.save();
        paintSection(&painter, rect, logical);
        painter.restore();
    }
    const int bottom = viewport()->height() - 1;
    painter.fillRect(QRect(event->rect().left(), bottom, event->rect().width(), 1), colors.line);
}

void ListHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    QStyleOptionHeaderV2 option;
    initStyleOption(&option);
    option.rect = rect;
    initStyleOptionForIndex(&option, logicalIndex);
    const ListColors colors(palette());
    if ((option.state & (QStyle::State_MouseOver | QStyle::State_Sunken)) != 0 && sectionsClickable())
        painter->fillRect(rect, (option.state & QStyle::State_Sunken) != 0 ? colors.selected : colors.hover);
    painter->fillRect(QRect(rect.right(), rect.top() + 5, 1, rect.height() - 10), colors.line);

    QRect inside = rect.adjusted(kTextMargin, 0, -kTextMargin - 1, -1);
    if (option.sortIndicator != QStyleOptionHeader::None) {
        const QRect chevron(inside.right() - kChevronSide + 1, inside.center().y() - kChevronSide / 2 + 1,
                            kChevronSide, kChevronSide);
        // Qt's "down" stands for ascending.
        paintChevron(*painter, chevron, option.sortIndicator == QStyleOptionHeader::SortDown ? 180 : 0,
                     colors.secondaryText);
        inside.setRight(chevron.left() - 3);
    }
    if (inside.width() <= 0) return;
    if (!option.icon.isNull()) {
        const QRect icon(inside.left(), inside.center().y() - 7, 16, 16);
        option.icon.paint(painter, icon);
        inside.setLeft(icon.right() + 5);
    }
    painter->setPen(colors.secondaryText);
    painter->drawText(inside, static_cast<int>(option.textAlignment) | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(option.text, Qt::ElideRight, inside.width()));
}

}  // namespace controls
