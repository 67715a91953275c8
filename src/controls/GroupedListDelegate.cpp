#include "controls/GroupedListDelegate.h"

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QPainter>
#include <QTextLayout>

#include "controls/GroupedListView.h"
#include "controls/ListColors.h"

namespace controls {

namespace {

constexpr int kTextMargin = 6;
constexpr int kIconTextGap = 4;
constexpr int kTilePadding = 8;
constexpr int kIconTextLines = 2;
constexpr int kFallbackTileLines = 3;
/// A value of a megabyte must not be shaped to learn that it does not fit: no glyph is narrower than this.
constexpr int kNarrowestGlyph = 2;

GroupedListView::Layout layoutOf(const QStyleOptionViewItem& option) {
    const auto* view = qobject_cast<const GroupedListView*>(option.widget);
    return view == nullptr ? GroupedListView::Layout::Details : view->viewLayout();
}

QString singleLine(const QString& text, int width) {
    QString cut = text.left(qMax(width, 0) / kNarrowestGlyph + 16);
    cut.replace(QChar::LineSeparator, QLatin1Char(' '));
    cut.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return cut;
}

void drawElided(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const QFontMetrics& metrics,
                const QString& text, Qt::TextElideMode mode = Qt::ElideRight) {
    if (text.isEmpty() || rect.width() <= 0) return;
    const QString shown = metrics.elidedText(singleLine(text, rect.width()), mode, rect.width());
    painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine, shown);
}

/// Of a path both ends count: where it leads from, and the name.
bool isPath(QStringView text) {
    return text.startsWith(u'/') && text.indexOf(u'/', 1) > 0;
}

QColor textColor(const QStyleOptionViewItem& option) {
    const bool enabled = (option.state & QStyle::State_Enabled) != 0;
    return option.palette.color(enabled ? QPalette::Normal : QPalette::Disabled, QPalette::Text);
}

/// The image of the cell, which may have kept less than the room that the view gives it.
void drawDecoration(QPainter& painter, const QStyleOptionViewItem& option, const QRect& rect) {
    if (option.icon.isNull()) return;
    const QIcon::Mode mode = (option.state & QStyle::State_Enabled) != 0 ? QIcon::Normal : QIcon::Disabled;
    option.icon.paint(&painter, rect, Qt::AlignCenter, mode);
}

QStringList tileLines(const QModelIndex& index, const QStyleOptionViewItem& option) {
    const QVariant own = index.data(GroupedListView::TileLinesRole);
    if (own.isValid()) return own.toStringList();
    QStringList lines;
    const auto* view = qobject_cast<const GroupedListView*>(option.widget);
    for (int column = 1; column < index.model()->columnCount() && lines.size() < kFallbackTileLines;
         ++column) {
        if (view != nullptr && view->header()->isSectionHidden(column)) continue;
        const QString text = index.siblingAtColumn(column).data().toString();
        if (!text.isEmpty()) lines.append(text);
    }
    return lines;
}

/// Lays the name below an icon out in at most two lines, each centred; the last is elided. Returns whether it
/// was cut.
bool layOutIconText(const QStyleOptionViewItem& option, const QRect& rect, QPainter* painter) {
    const QString text = singleLine(option.text, rect.width() * kIconTextLines);
    QTextLayout layout(text, option.font);
    QTextOption textOption(Qt::AlignHCenter);
    textOption.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(textOption);
    layout.beginLayout();
    int y = rect.top();
    bool cut = false;
    for (int number = 0; number < kIconTextLines; ++number) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(rect.width());
        const bool last = number + 1 == kIconTextLines && line.textStart() + line.textLength() < text.size();
        cut = cut || last;
        if (painter != nullptr) {
            const QString part = last ? option.fontMetrics.elidedText(text.mid(line.textStart()),
                                                                      Qt::ElideMiddle, rect.width())
                                      : text.mid(line.textStart(), line.textLength());
            painter->drawText(QRect(rect.left(), y, rect.width(), option.fontMetrics.height()),
                              Qt::AlignCenter | Qt::TextSingleLine, part);
        }
        y += option.fontMetrics.height();
    }
    layout.endLayout();
    return cut;
}

QRect iconTextRect(const QStyleOptionViewItem& option) {
    const QRect inside = option.rect.adjusted(kTilePadding, 0, -kTilePadding, 0);
    const int height = option.fontMetrics.height() * kIconTextLines;
    return {inside.left(), inside.bottom() + 1 - height - kIconTextGap, inside.width(), height};
}

QRect tileTextRect(const QStyleOptionViewItem& option, int side) {
    return option.rect.adjusted(kTilePadding + side + kTilePadding, kTilePadding, -kTilePadding,
                                -kTilePadding);
}

int pictureSide(const QStyleOptionViewItem& option) {
    const auto* view = qobject_cast<const GroupedListView*>(option.widget);
    return view == nullptr ? option.decorationSize.width() : view->pictureSide();
}

}  // namespace

QRect GroupedListDelegate::detailsTextRect(const QStyleOptionViewItem& option) {
    QRect rect = option.rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
    if (!option.icon.isNull()) rect.setLeft(rect.left() + option.decorationSize.width() + kIconTextGap);
    return rect;
}

void GroupedListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    cell.fontMetrics = QFontMetrics(cell.font);
    // Blanks that set a name off in its column would put it out of line under a picture.
    if (layoutOf(cell) != GroupedListView::Layout::Details) cell.text = cell.text.trimmed();
    painter->save();
    if (cell.backgroundBrush.style() != Qt::NoBrush) painter->fillRect(cell.rect, cell.backgroundBrush);
    painter->setFont(cell.font);
    painter->setPen(textColor(cell));
    switch (layoutOf(cell)) {
        case GroupedListView::Layout::Details:
            paintDetails(*painter, cell);
            break;
        case GroupedListView::Layout::Tiles:
            paintTile(*painter, cell, index);
            break;
        case GroupedListView::Layout::Icons:
            paintIcon(*painter, cell);
            break;
    }
    painter->restore();
}

void GroupedListDelegate::paintDetails(QPainter& painter, const QStyleOptionViewItem& option) const {
    QStyleOptionViewItem cell = option;
    // A kind's icon stands alone in a narrow column, where the margins of a text have no room.
    if (!cell.icon.isNull()) {
        const QSize size = cell.decorationSize.boundedTo(cell.rect.size());
        const bool alone = cell.text.isEmpty();
        const bool centred = alone && (cell.displayAlignment & Qt::AlignHCenter) != 0;
        const int free = cell.rect.width() - size.width();
        const int left = centred ? free / 2 : qMin(kTextMargin, qMax(free, 0));
        drawDecoration(
            painter, cell,
            {QPoint(cell.rect.left() + left, cell.rect.top() + (cell.rect.height() - size.height()) / 2),
             size});
    }
    drawElided(painter, detailsTextRect(cell), cell.displayAlignment, cell.fontMetrics, cell.text,
               isPath(cell.text) ? Qt::ElideMiddle : Qt::ElideRight);
}

void GroupedListDelegate::paintTile(QPainter& painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    const int side = pictureSide(option);
    drawDecoration(painter, option,
                   {option.rect.left() + kTilePadding, option.rect.center().y() - side / 2 + 1, side, side});
    const QRect area = tileTextRect(option, side);
    const int lineHeight = option.fontMetrics.height() + 1;
    const int room = qMax(1, area.height() / lineHeight);
    const QStringList lines = tileLines(index, option).mid(0, room - 1);
    QRect line(area.left(), area.center().y() - lineHeight * static_cast<int>(lines.size() + 1) / 2 + 1,
               area.width(), lineHeight);
    drawElided(painter, line, Qt::AlignLeft | Qt::AlignVCenter, option.fontMetrics, option.text,
               Qt::ElideMiddle);
    painter.setPen(
        ListColors(option.widget != nullptr ? option.widget->palette() : option.palette).secondaryText);
    for (const QString& text : lines) {
        line.translate(0, lineHeight);
        drawElided(painter, line, Qt::AlignLeft | Qt::AlignVCenter, option.fontMetrics, text);
    }
}

void GroupedListDelegate::paintIcon(QPainter& painter, const QStyleOptionViewItem& option) const {
    const int side = pictureSide(option);
    drawDecoration(painter, option,
                   {option.rect.center().x() - side / 2 + 1, option.rect.top() + kIconTextGap, side, side});
    layOutIconText(option, iconTextRect(option), &painter);
}

QSize GroupedListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QFontMetrics metrics(cell.font);
    constexpr int kWidestCell = 4000;
    int width = metrics.horizontalAdvance(singleLine(cell.text, kWidestCell)) + 2 * kTextMargin + 1;
    if (!cell.icon.isNull()) width += cell.decorationSize.width() + kIconTextGap;
    return {qMin(width, kWidestCell), qMax(metrics.height(), cell.decorationSize.height()) + 4};
}

bool GroupedListDelegate::isTextCut(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    cell.fontMetrics = QFontMetrics(cell.font);
    int room = 0;
    switch (layoutOf(cell)) {
        case GroupedListView::Layout::Icons:
            return layOutIconText(cell, iconTextRect(cell), nullptr);
        case GroupedListView::Layout::Tiles:
            room = tileTextRect(cell, pictureSide(cell)).width();
            break;
        case GroupedListView::Layout::Details:
            room = detailsTextRect(cell).width();
            break;
    }
    return cell.fontMetrics.horizontalAdvance(singleLine(cell.text, room)) > room;
}

}  // namespace controls
