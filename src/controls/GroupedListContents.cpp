#include "controls/GroupedListContents.h"

#include <QScrollBar>

#include "controls/ListHeader.h"

namespace controls {

namespace {

constexpr int kGroupHeaderHeight = 28;
constexpr int kGroupSpacing = 4;
constexpr int kCheckBoxMargin = 6;
constexpr int kCheckBoxSide = 14;
constexpr int kTilePadding = 8;
constexpr int kTileTextWidth = 220;
constexpr int kSmallestIconCell = 96;
constexpr int kIconTextLines = 2;
constexpr int kNoGroup = -1;
constexpr int kGroupNotRead = -2;

}  // namespace

GroupedListView::Contents::Contents(GroupedListView& view) : header(new ListHeader(&view)), view_(view) {}

int GroupedListView::Contents::rowCount() const {
    return view_.model() == nullptr ? 0 : view_.model()->rowCount(view_.rootIndex());
}

int GroupedListView::Contents::effectiveRowHeight() const {
    return qMax(rowHeight, view_.fontMetrics().height() + 2);
}

ListGeometry::Metrics GroupedListView::Contents::metrics() const {
    const int width = view_.viewport()->width();
    const int textHeight = view_.fontMetrics().height();
    ListGeometry::Metrics metrics;
    metrics.width = width;
    metrics.groupHeaderHeight = qMax(kGroupHeaderHeight, textHeight + 8);
    metrics.groupSpacing = kGroupSpacing;
    if (isDetails()) {
        metrics.cell = {qMax(header->length(), 1), effectiveRowHeight()};
        return metrics;
    }
    const bool tiles = layout == Layout::Tiles;
    const int smallest = tiles ? pictureSide + 3 * kTilePadding + kTileTextWidth
                               : qMax(pictureSide + 2 * kTilePadding, kSmallestIconCell);
    const int height = tiles ? qMax(pictureSide, 3 * (textHeight + 1)) + 2 * kTilePadding
                             : pictureSide + kIconTextLines * textHeight + 2 * kTilePadding;
    metrics.perLine = qMax(1, width / smallest);
    // What is left over at the right is shared out, up to half a cell each.
    metrics.cell = {qBound(smallest, width / metrics.perLine, smallest + smallest / 2), height};
    return metrics;
}

const ListGeometry& GroupedListView::Contents::geometry() {
    if (rowsOutdated_) {
        if (groupsEnabled) {
            readMissingRowGroups();
            geometry_.orderByGroup(groupOfRow_, static_cast<int>(groups_.size()));
        } else {
            geometry_.orderFlat(rowCount());
        }
        rowsOutdated_ = false;
        sizesOutdated_ = true;
    }
    if (sizesOutdated_) {
        std::vector<bool> collapsed(groups_.size());
        for (size_t index = 0; index < groups_.size(); ++index)
            collapsed[index] = isCollapsed(groups_[index].id);
        geometry_.arrange(metrics(), collapsed);
        sizesOutdated_ = false;
    }
    return geometry_;
}

int GroupedListView::Contents::readGroupIndex(int row) const {
    const QVariant id = view_.model()->index(row, 0, view_.rootIndex()).data(GroupIdRole);
    return id.isValid() ? groupIndexOfId_.value(id.toInt(), kNoGroup) : kNoGroup;
}

void GroupedListView::Contents::readMissingRowGroups() {
    const auto rows = static_cast<size_t>(rowCount());
    if (groupOfRow_.size() != rows) groupOfRow_.assign(rows, kGroupNotRead);
    for (size_t row = 0; row < rows; ++row)
        if (groupOfRow_[row] == kGroupNotRead) groupOfRow_[row] = readGroupIndex(static_cast<int>(row));
}

void GroupedListView::Contents::connectModel(QAbstractItemModel* model) {
    for (const QMetaObject::Connection& connection : connections_) QObject::disconnect(connection);
    connections_.clear();
    keptRow_ = QPersistentModelIndex();
    if (model == nullptr) return;
    const auto forget = [this] { forgetRowGroups(); };
    connections_ = {
        QObject::connect(
            model, &QAbstractItemModel::rowsAboutToBeRemoved, &view_,
            [this](const QModelIndex&, int start, int end) { rowsAboutToBeRemoved(start, end); }),
        QObject::connect(model, &QAbstractItemModel::rowsRemoved, &view_,
                         [this](const QModelIndex&, int start, int end) { rowsRemoved(start, end); }),
        QObject::connect(model, &QAbstractItemModel::rowsMoved, &view_, forget),
        QObject::connect(model, &QAbstractItemModel::layoutChanged, &view_, forget),
        QObject::connect(model, &QObject::destroyed, &view_, forget),
    };
}

void GroupedListView::Contents::rowsChanged() {
    rowsOutdated_ = true;
    view_.scheduleDelayedItemsLayout();
}

void GroupedListView::Contents::sizesChanged() {
    sizesOutdated_ = true;
    view_.scheduleDelayedItemsLayout();
}

void GroupedListView::Contents::forgetRowGroups() {
    groupOfRow_.clear();
    rowsChanged();
}

void GroupedListView::Contents::keepPlaceOf(int oldRow, int newRow) {
    const int offset = view_.verticalOffset();
    if (offset == 0 || keptRow_.isValid() || isOutdated()) return;
    const QRect rect = geometry_.rectOf(geometry_.positionOf(oldRow));
    if (rect.isEmpty()) return;
    keptRow_ = view_.model()->index(newRow, 0, view_.rootIndex());
    keptRowTop_ = rect.top() - offset;
}

std::optional<int> GroupedListView::Contents::takeKeptOffset() {
    const QPersistentModelIndex kept = keptRow_;
    keptRow_ = QPersistentModelIndex();
    if (!kept.isValid()) return std::nullopt;
    const QRect rect = geometry().rectOf(geometry().positionOf(kept.row()));
    if (rect.isEmpty()) return std::nullopt;
    return rect.top() - keptRowTop_;
}

void GroupedListView::Contents::rowsInserted(int start, int end) {
    const int count = end - start + 1;
    if (!isOutdated()) {
        const auto spans = spansIn(view_.viewport()->rect());
        const int row = spans.empty() ? -1 : geometry_.rowAt(spans.front().first);
        if (row >= 0) keepPlaceOf(row, row >= start ? row + count : row);
    }
    if (groupsEnabled && static_cast<size_t>(start) <= groupOfRow_.size())
        groupOfRow_.insert(groupOfRow_.begin() + start, static_cast<size_t>(count), kGroupNotRead);
    rowsChanged();
}

void GroupedListView::Contents::rowsAboutToBeRemoved(int start, int end) {
    if (isOutdated()) return;
    for (const int row : view_.visibleRows()) {
        if (row >= start && row <= end) continue;
        keepPlaceOf(row, row);
        break;
    }
}

void GroupedListView::Contents::rowsRemoved(int start, int end) {
    if (static_cast<size_t>(end) < groupOfRow_.size())
        groupOfRow_.erase(groupOfRow_.begin() + start, groupOfRow_.begin() + end + 1);
    rowsChanged();
}

void GroupedListView::Contents::groupsOfRowsMayHaveChanged(int start, int end) {
    if (!groupsEnabled) return;
    bool changed = false;
    for (int row = start; row <= end && static_cast<size_t>(row) < groupOfRow_.size(); ++row) {
        int& known = groupOfRow_[static_cast<size_t>(row)];
        if (known == kGroupNotRead) continue;
        const int now = readGroupIndex(row);
        changed = changed || now != known;
        known = now;
    }
    if (changed) rowsChanged();
}

void GroupedListView::Contents::setGroups(std::vector<Group> groups) {
    groups_ = std::move(groups);
    groupIndexOfId_.clear();
    for (size_t index = 0; index < groups_.size(); ++index)
        groupIndexOfId_.insert(groups_[index].id, static_cast<int>(index));
    forgetRowGroups();
}

GroupedListView::Group* GroupedListView::Contents::findGroup(int groupId) {
    const auto found = groupIndexOfId_.constFind(groupId);
    return found == groupIndexOfId_.cend() ? nullptr : &groups_[static_cast<size_t>(*found)];
}

void GroupedListView::Contents::setCollapsed(int groupId, bool collapsed) {
    if (collapsed == isCollapsed(groupId)) return;
    if (collapsed)
        collapsedIds_.insert(groupId);
    else
        collapsedIds_.remove(groupId);
    sizesChanged();
}

const ListGeometry::Section* GroupedListView::Contents::sectionOfId(int groupId) {
    if (!groupsEnabled) return nullptr;
    return geometry().sectionOfGroup(groupIndexOfId_.value(groupId, kNoGroup));
}

const GroupedListView::Group* GroupedListView::Contents::groupOfRow(int row) {
    const ListGeometry& places = geometry();
    const ListGeometry::Section* section = places.sectionOfPosition(places.positionOf(row));
    return section == nullptr || section->group < 0 ? nullptr : &groupAt(section->group);
}

QPoint GroupedListView::Contents::toContent(QPoint viewportPoint) const {
    return viewportPoint + QPoint(view_.horizontalOffset(), view_.verticalOffset());
}

QRect GroupedListView::Contents::toViewport(QRect contentRect) const {
    return contentRect.translated(-view_.horizontalOffset(), -view_.verticalOffset());
}

QRect GroupedListView::Contents::rowRect(int row) {
    const QRect rect = geometry().rectOf(geometry().positionOf(row));
    return rect.isEmpty() ? QRect() : toViewport(rect);
}

QRect GroupedListView::Contents::cellRect(int row, int column) {
    const QRect rect = rowRect(row);
    if (rect.isEmpty() || (!isDetails() && column != 0)) return {};
    if (!isDetails()) return rect;
    if (column < 0 || column >= header->count() || header->isSectionHidden(column)) return {};
    return {header->sectionViewportPosition(column), rect.top(), header->sectionSize(column), rect.height()};
}

QRect GroupedListView::Contents::checkBoxRect(const QRect& cellRect) const {
    if (!checkBoxes || cellRect.isEmpty()) return {};
    const int top = layout == Layout::Icons ? kCheckBoxMargin : (cellRect.height() - kCheckBoxSide) / 2;
    return {cellRect.left() + kCheckBoxMargin, cellRect.top() + top, kCheckBoxSide, kCheckBoxSide};
}

QRect GroupedListView::Contents::delegateRect(const QRect& cellRect, int column) const {
    // Over an icon there is room for the box; beside a text there is not.
    if (!checkBoxes || column != 0 || layout == Layout::Icons) return cellRect;
    QRect rect = cellRect;
    rect.setLeft(qMin(checkBoxRect(cellRect).right() + 1, cellRect.right() + 1));
    return rect;
}

std::vector<ListGeometry::Span> GroupedListView::Contents::spansIn(const QRect& viewportRect) {
    if (viewportRect.isEmpty()) return {};
    const int offset = view_.verticalOffset();
    return geometry().spansBetween(viewportRect.top() + offset, viewportRect.bottom() + offset);
}

std::vector<ListGeometry::Span> GroupedListView::Contents::shownSpansBetween(int onePosition,
                                                                             int otherPosition) {
    const auto [first, last] = std::minmax(onePosition, otherPosition);
    std::vector<ListGeometry::Span> spans;
    for (const ListGeometry::Section& section : geometry().sections()) {
        const int from = qMax(first, section.firstPosition);
        const int to = qMin(last, section.firstPosition + section.count - 1);
        if (!section.collapsed && from <= to) spans.push_back({from, to});
    }
    return spans;
}

QItemSelection GroupedListView::Contents::selectionOf(const std::vector<ListGeometry::Span>& spans) {
    QItemSelection selection;
    const QAbstractItemModel* model = view_.model();
    if (model == nullptr || model->columnCount(view_.rootIndex()) == 0) return selection;
    const int lastColumn = model->columnCount(view_.rootIndex()) - 1;
    const auto add = [&](int first, int last) {
        selection.append(QItemSelectionRange(model->index(first, 0, view_.rootIndex()),
                                             model->index(last, lastColumn, view_.rootIndex())));
    };
    if (!groupsEnabled) {
        for (const ListGeometry::Span& span : spans) add(span.first, span.last);
        return selection;
    }
    std::vector<int> rows;
    for (const ListGeometry::Span& span : spans)
        for (int position = span.first; position <= span.last; ++position)
            rows.push_back(geometry_.rowAt(position));
    std::ranges::sort(rows);
    for (size_t begin = 0, end = 0; begin < rows.size(); begin = end) {
        for (end = begin + 1; end < rows.size() && rows[end] == rows[end - 1] + 1;) ++end;
        add(rows[begin], rows[end - 1]);
    }
    return selection;
}

}  // namespace controls
