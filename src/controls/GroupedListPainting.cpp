#include "controls/GroupedListPainting.h"

#include <QPaintEvent>
#include <QPainter>
#include <QRegularExpression>

#include "controls/GroupedListContents.h"
#include "controls/GroupedListInput.h"
#include "controls/ListHeader.h"
#include "controls/TickBox.h"

namespace controls {

namespace {

constexpr int kMargin = 6;
constexpr int kIconSide = 16;
constexpr int kCellInset = 2;
constexpr int kMarkWidth = 3;
constexpr qreal kCellRadius = 4;
constexpr qreal kGhostOpacity = 0.5;

}  // namespace

QStyleOptionViewItem GroupedListView::Painting::commonOption() const {
    QStyleOptionViewItem option;
    view_.initViewItemOption(&option);
    option.palette.setColor(QPalette::Highlight, Qt::transparent);
    option.palette.setColor(QPalette::HighlightedText, option.palette.color(QPalette::Text));
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver | QStyle::State_Selected);
    option.showDecorationSelected = false;
    option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    const Contents& contents = *view_.contents_;
    const int side = contents.isDetails() ? kIconSide : contents.pictureSide;
    option.decorationSize = {side, side};
    option.decorationPosition =
        contents.layout == Layout::Icons ? QStyleOptionViewItem::Top : QStyleOptionViewItem::Left;
    return option;
}

QStyleOptionViewItem GroupedListView::Painting::cellOption(const QModelIndex& index) const {
    QStyleOptionViewItem option = commonOption();
    Contents& contents = *view_.contents_;
    option.rect = contents.delegateRect(contents.cellRect(index.row(), index.column()), index.column());
    option.index = index;
    return option;
}

void GroupedListView::Painting::paint(const QPaintEvent& event) {
    QPainter painter(view_.viewport());
    colors_ = ListColors(view_.palette());
    common_ = commonOption();
    Contents& contents = *view_.contents_;
    const ListGeometry& geometry = contents.geometry();
    const QRect exposed = event.rect();
    if (geometry.positionCount() == 0) paintEmpty(painter);
    const QItemSelectionModel* selection = view_.selectionModel();
    for (const ListGeometry::Span& span : contents.spansIn(exposed)) {
        const int first = geometry.sectionOfPosition(span.first)->firstPosition;
        for (int position = span.first; position <= span.last; ++position) {
            Row row;
            row.index = view_.model()->index(geometry.rowAt(position), 0, view_.rootIndex());
            row.rect = contents.toViewport(geometry.rectOf(position));
            row.selected = selection != nullptr && selection->isSelected(row.index);
            row.hovered = view_.input_->hoveredRow() == row.index.row();
            row.alternate = view_.alternatingRowColors() && (position - first) % 2 == 1;
            paintRow(painter, row, exposed);
        }
    }
    paintHeaders(painter, exposed);
    paintRubberBand(painter);
}

void GroupedListView::Painting::paintHeaders(QPainter& painter, const QRect& exposed) const {
    Contents& contents = *view_.contents_;
    const ListGeometry& geometry = contents.geometry();
    if (!contents.groupsEnabled) return;
    const int offset = view_.verticalOffset();
    const ListGeometry::Span range =
        geometry.sectionsBetween(exposed.top() + offset, exposed.bottom() + offset);
    const Group* current =
        view_.currentIndex().isValid() ? contents.groupOfRow(view_.currentIndex().row()) : nullptr;
    for (int index = range.first; index <= range.last; ++index) {
        const ListGeometry::Section& section = geometry.sections()[static_cast<size_t>(index)];
        const QRect rect = geometry.headerRect(section).translated(0, -offset);
        if (!rect.intersects(exposed)) continue;
        const Group& group = contents.groupAt(section.group);
        painter.save();
        view_.paintGroupHeader(painter, rect, group, section.collapsed,
                               view_.input_->hoveredGroup() == group.id);
        painter.restore();
        // The row with the focus is out of sight: its group stands for it.
        if (section.collapsed && current == &group && view_.hasFocus()) {
            painter.setPen(colors_.focusFrame);
            painter.drawRect(rect.adjusted(0, 0, -1, -1));
        }
    }
}

void GroupedListView::Painting::paintRow(QPainter& painter, const Row& row, const QRect& exposed) const {
    const Contents& contents = *view_.contents_;
    if (row.alternate && contents.isDetails())
        painter.fillRect(QRect(0, row.rect.top(), view_.viewport()->width(), row.rect.height()),
                         view_.palette().brush(QPalette::AlternateBase));
    if (contents.gridLines && contents.isDetails()) paintGrid(painter, row);
    paintTint(painter, row);
    const bool ghost = row.index.data(GhostRole).toBool();
    if (ghost) painter.setOpacity(kGhostOpacity);
    paintCells(painter, row, exposed);
    if (ghost) painter.setOpacity(1);
}

void GroupedListView::Painting::paintTint(QPainter& painter, const Row& row) const {
    Contents& contents = *view_.contents_;
    const bool current =
        view_.hasFocus() && view_.currentIndex().isValid() && view_.currentIndex().row() == row.index.row();
    if (!row.selected && !row.hovered && !current) return;
    QColor tint = Qt::transparent;
    if (row.selected)
        tint = row.hovered ? colors_.selectedHovered : colors_.selected;
    else if (row.hovered)
        tint = colors_.hover;

    QRect rect = row.rect;
    if (contents.isDetails() && !contents.fullRowSelection) rect = contents.cellRect(row.index.row(), 0);
    if (contents.isDetails()) {
        painter.fillRect(rect, tint);
        if (row.selected)
            painter.fillRect(QRect(qMax(rect.left(), 0), rect.top(), kMarkWidth, rect.height()),
                             colors_.selectionMark);
        painter.setPen(colors_.focusFrame);
        if (current) painter.drawRect(rect.adjusted(0, 0, -1, -1));
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(current ? QPen(colors_.focusFrame) : QPen(Qt::NoPen));
    painter.setBrush(tint);
    const QRectF cell = QRectF(rect.adjusted(kCellInset, kCellInset, -kCellInset, -kCellInset));
    painter.drawRoundedRect(cell.adjusted(0.5, 0.5, -0.5, -0.5), kCellRadius, kCellRadius);
    painter.restore();
}

void GroupedListView::Painting::paintCells(QPainter& painter, const Row& row, const QRect& exposed) const {
    const Contents& contents = *view_.contents_;
    if (!contents.isDetails()) {
        paintCell(painter, row, row.index, row.rect);
        return;
    }
    const ListHeader& header = *contents.header;
    for (int visual = 0; visual < header.count(); ++visual) {
        const int column = header.logicalIndex(visual);
        if (header.isSectionHidden(column)) continue;
        const QRect cell(header.sectionViewportPosition(column), row.rect.top(), header.sectionSize(column),
                         row.rect.height());
        if (cell.left() > exposed.right()) break;
        if (cell.right() >= exposed.left()) paintCell(painter, row, row.index.siblingAtColumn(column), cell);
    }
}

void GroupedListView::Painting::paintCell(QPainter& painter, const Row& row, const QModelIndex& index,
                                          const QRect& cell) const {
    const Contents& contents = *view_.contents_;
    QStyleOptionViewItem option = common_;
    option.rect = contents.delegateRect(cell, index.column());
    option.index = index;
    option.state.setFlag(QStyle::State_Selected, row.selected);
    option.state.setFlag(QStyle::State_MouseOver, row.hovered);
    option.features.setFlag(QStyleOptionViewItem::Alternate, row.alternate);
    view_.itemDelegateForIndex(index)->paint(&painter, option, index);
    if (contents.checkBoxes && index.column() == 0) paintCheckBox(painter, row, cell);
}

void GroupedListView::Painting::paintCheckBox(QPainter& painter, const Row& row, const QRect& cell) const {
    paintTickBox(painter, view_.contents_->checkBoxRect(cell), view_.palette(),
                 {.ticked = row.selected, .hovered = row.hovered});
}

void GroupedListView::Painting::paintGrid(QPainter& painter, const Row& row) const {
    const ListHeader& header = *view_.contents_->header;
    painter.fillRect(QRect(row.rect.left(), row.rect.bottom(), row.rect.width(), 1), colors_.line);
    for (int visual = 0; visual < header.count(); ++visual) {
        const int column = header.logicalIndex(visual);
        if (header.isSectionHidden(column)) continue;
        const int right = header.sectionViewportPosition(column) + header.sectionSize(column) - 1;
        painter.fillRect(QRect(right, row.rect.top(), 1, row.rect.height()), colors_.line);
    }
}

void GroupedListView::Painting::paintDefaultGroupHeader(QPainter& painter, const QRect& rect,
                                                        const Group& group, bool collapsed,
                                                        bool hovered) const {
    const ListColors colors(view_.palette());
    if (hovered) painter.fillRect(rect, colors.hover);
    int left = rect.left() + kMargin;
    if (group.collapsible) view_.paintGroupChevron(painter, rect, collapsed, colors.secondaryText);
    left = view_.groupChevronRect(rect).right() + kMargin;
    if (!group.image.isNull()) {
        group.image.paint(&painter, QRect(left, rect.center().y() - kIconSide / 2 + 1, kIconSide, kIconSide));
        left += kIconSide + kMargin;
    }
    // A count at the end of the title stands back behind the name.
    static const QRegularExpression countPattern(QStringLiteral(R"(\s*\(\d+\)$)"));
    const QString title = group.title.trimmed();
    const qsizetype countAt = countPattern.match(title).capturedStart();
    const QString name = countAt < 0 ? title : title.left(countAt);
    const QString count = countAt < 0 ? QString() : title.mid(countAt);
    const auto draw = [&](const QString& text, bool bold, const QColor& color) {
        QFont font = view_.font();
        font.setBold(bold);
        const QFontMetrics metrics(font);
        painter.setFont(font);
        painter.setPen(color);
        const QRect room(left, rect.top(), qMax(0, rect.right() - kMargin - left), rect.height());
        const QString shown = metrics.elidedText(text, Qt::ElideRight, room.width());
        painter.drawText(room, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine,
                         shown);
        left += metrics.horizontalAdvance(shown);
    };
    draw(name, true, colors.groupTitle);
    if (!count.isEmpty()) draw(count, false, colors.secondaryText);
    left += 2 * kMargin;
    if (left < rect.right())
        painter.fillRect(QRect(left, rect.center().y() + 1, rect.right() - left, 1), colors.line);
}

void GroupedListView::Painting::paintEmpty(QPainter& painter) const {
    // Without a row to stand on, the keyboard is in the list all the same.
    if (view_.hasFocus()) {
        painter.setPen(colors_.focusFrame);
        painter.drawRect(view_.viewport()->rect().adjusted(0, 0, -1, -1));
    }
    const QString& text = view_.contents_->emptyText;
    if (text.isEmpty()) return;
    painter.setPen(colors_.secondaryText);
    painter.drawText(view_.viewport()->rect().adjusted(12, 12, -12, -12),
                     static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, text);
}

void GroupedListView::Painting::paintRubberBand(QPainter& painter) const {
    const QRect band = view_.input_->rubberBand();
    if (band.isEmpty()) return;
    painter.fillRect(band, colors_.selected);
    painter.setPen(colors_.focusFrame);
    painter.drawRect(band.adjusted(0, 0, -1, -1));
}

}  // namespace controls
