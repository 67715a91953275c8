#include "controls/GroupedListView.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include "controls/GroupedListContents.h"
#include "controls/GroupedListDelegate.h"
#include "controls/GroupedListInput.h"
#include "controls/GroupedListPainting.h"
#include "controls/ListHeader.h"

namespace controls {

namespace {

constexpr int kChevronSide = 16;
constexpr int kChevronMargin = 4;
constexpr int kSampledRows = 1000;
constexpr int kLongestToolTip = 3000;

}  // namespace

GroupedListView::GroupedListView(QWidget* parent)
    : QAbstractItemView(parent),
      contents_(std::make_unique<Contents>(*this)),
      painting_(std::make_unique<Painting>(*this)),
      input_(std::make_unique<Input>(*this)) {
    setItemDelegate(new GroupedListDelegate(this));
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setAlternatingRowColors(true);
    setFrameShape(NoFrame);
    viewport()->setMouseTracking(true);

    ListHeader* header = contents_->header;
    const auto columnsChanged = [this] {
        contents_->sizesChanged();
        viewport()->update();
    };
    connect(header, &QHeaderView::sectionResized, this, columnsChanged);
    connect(header, &QHeaderView::sectionMoved, this, columnsChanged);
    connect(header, &QHeaderView::sectionCountChanged, this, columnsChanged);
    connect(header, &QHeaderView::geometriesChanged, this, [this] { updateGeometries(); });
    connect(header, &QHeaderView::sectionHandleDoubleClicked, this, [header, this](int column) {
        header->resizeSection(column, qMax(sizeHintForColumn(column), header->sectionSizeHint(column)));
    });
    contents_->sizesChanged();
}

GroupedListView::~GroupedListView() {
    // The header goes with the base class and tells its last events when this part of the view is gone.
    contents_->header->disconnect(this);
}

QHeaderView* GroupedListView::header() const {
    return contents_->header;
}

// --- layout

void GroupedListView::setViewLayout(Layout layout) {
    if (layout == contents_->layout) return;
    if (contents_->isDetails()) contents_->headerWanted = !contents_->header->isHidden();
    contents_->layout = layout;
    contents_->header->setVisible(contents_->isDetails() && contents_->headerWanted);
    contents_->sizesChanged();
    updateGeometries();
    if (currentIndex().isValid()) scrollTo(currentIndex());
}

GroupedListView::Layout GroupedListView::viewLayout() const {
    return contents_->layout;
}

void GroupedListView::setPictureSide(int pixels) {
    contents_->pictureSide = qMax(pixels, 8);
    contents_->sizesChanged();
}

int GroupedListView::pictureSide() const {
    return contents_->pictureSide;
}

// --- groups

void GroupedListView::setGroups(std::vector<Group> groups) {
    contents_->setGroups(std::move(groups));
}

void GroupedListView::setGroupsEnabled(bool enabled) {
    if (enabled == contents_->groupsEnabled) return;
    contents_->groupsEnabled = enabled;
    contents_->forgetRowGroups();
}

bool GroupedListView::groupsEnabled() const {
    return contents_->groupsEnabled;
}

void GroupedListView::setGroupTitle(int groupId, const QString& title) {
    Group* group = contents_->findGroup(groupId);
    if (group == nullptr || group->title == title) return;
    group->title = title;
    // When the layout is due, all will be painted anyway.
    if (!contents_->isOutdated()) viewport()->update(groupHeaderRect(groupId));
}

QString GroupedListView::groupTitle(int groupId) const {
    const Group* group = contents_->findGroup(groupId);
    return group == nullptr ? QString() : group->title;
}

void GroupedListView::setGroupCollapsed(int groupId, bool collapsed) {
    contents_->setCollapsed(groupId, collapsed);
}

bool GroupedListView::isGroupCollapsed(int groupId) const {
    return contents_->isCollapsed(groupId);
}

std::vector<int> GroupedListView::shownGroups() const {
    std::vector<int> ids;
    for (const ListGeometry::Section& section : contents_->geometry().sections())
        if (section.group >= 0) ids.push_back(contents_->groupAt(section.group).id);
    return ids;
}

QRect GroupedListView::groupHeaderRect(int groupId) const {
    const ListGeometry::Section* section = contents_->sectionOfId(groupId);
    if (section == nullptr) return {};
    return contents_->geometry().headerRect(*section).translated(0, -verticalOffset());
}

QRect GroupedListView::groupChevronRect(const QRect& headerRect) const {
    return {headerRect.left() + kChevronMargin, headerRect.center().y() - kChevronSide / 2 + 1, kChevronSide,
            kChevronSide};
}

void GroupedListView::paintGroupChevron(QPainter& painter, const QRect& headerRect, bool collapsed,
                                        const QColor& color) const {
    paintChevron(painter, groupChevronRect(headerRect), collapsed ? -90 : 0, color);
}

void GroupedListView::paintGroupHeader(QPainter& painter, const QRect& rect, const Group& group,
                                       bool collapsed, bool hovered) const {
    painting_->paintDefaultGroupHeader(painter, rect, group, collapsed, hovered);
}

// --- look and habits

void GroupedListView::setCheckBoxes(bool shown) {
    contents_->checkBoxes = shown;
    viewport()->update();
}

bool GroupedListView::checkBoxes() const {
    return contents_->checkBoxes;
}

void GroupedListView::setGridLines(bool shown) {
    contents_->gridLines = shown;
    viewport()->update();
}

void GroupedListView::setFullRowSelection(bool enabled) {
    contents_->fullRowSelection = enabled;
    viewport()->update();
}

void GroupedListView::setRowHeight(int pixels) {
    contents_->rowHeight = qMax(pixels, 8);
    contents_->sizesChanged();
}

void GroupedListView::setEmptyText(const QString& text) {
    contents_->emptyText = text;
    viewport()->update();
}

QString GroupedListView::emptyText() const {
    return contents_->emptyText;
}

void GroupedListView::setSearchColumn(int column) {
    contents_->searchColumn = column;
}

// --- rows

std::vector<int> GroupedListView::rowsInViewOrder() const {
    const ListGeometry& geometry = contents_->geometry();
    std::vector<int> rows(static_cast<size_t>(geometry.positionCount()));
    for (size_t position = 0; position < rows.size(); ++position)
        rows[position] = geometry.rowAt(static_cast<int>(position));
    return rows;
}

std::vector<int> GroupedListView::visibleRows() const {
    std::vector<int> rows;
    for (const ListGeometry::Span& span : contents_->spansIn(viewport()->rect()))
        for (int position = span.first; position <= span.last; ++position)
            rows.push_back(contents_->geometry().rowAt(position));
    return rows;
}

QRect GroupedListView::checkBoxRect(const QModelIndex& index) const {
    return index.isValid() ? contents_->checkBoxRect(contents_->cellRect(index.row(), 0)) : QRect();
}

void GroupedListView::selectAll() {
    if (selectionMode() != ExtendedSelection && selectionMode() != MultiSelection) return;
    const int count = contents_->geometry().positionCount();
    if (count > 0) input_->selectSpans({{0, count - 1}}, QItemSelectionModel::ClearAndSelect);
}

void GroupedListView::invertSelection() {
    if (selectionMode() != ExtendedSelection && selectionMode() != MultiSelection) return;
    const int count = contents_->geometry().positionCount();
    if (count > 0) input_->selectSpans({{0, count - 1}}, QItemSelectionModel::Toggle);
}

int GroupedListView::sizeHintForColumn(int column) const {
    if (model() == nullptr || column < 0 || column >= contents_->header->count()) return -1;
    const ListGeometry& geometry = contents_->geometry();
    const std::vector<int> visible = visibleRows();
    const int around = visible.empty() ? 0 : geometry.positionOf(visible.front());
    const int first = qMax(0, around - kSampledRows / 2);
    const int last = qMin(first + kSampledRows, geometry.positionCount());
    int width = 0;
    for (int position = first; position < last; ++position) {
        const QModelIndex index = model()->index(geometry.rowAt(position), column, rootIndex());
        const int hint = itemDelegateForIndex(index)->sizeHint(painting_->cellOption(index), index).width();
        width = qMax(width, hint);
    }
    if (column == 0 && contents_->checkBoxes) width += contents_->checkBoxRect({0, 0, width, 24}).right() + 1;
    return width;
}

// --- geometry

QRect GroupedListView::visualRect(const QModelIndex& index) const {
    return index.isValid() ? contents_->cellRect(index.row(), index.column()) : QRect();
}

QModelIndex GroupedListView::indexAt(const QPoint& point) const {
    return input_->indexAt(point);
}

bool GroupedListView::isIndexHidden(const QModelIndex& index) const {
    const ListGeometry& geometry = contents_->geometry();
    return !geometry.isShown(geometry.positionOf(index.row()));
}

int GroupedListView::horizontalOffset() const {
    return horizontalScrollBar()->value();
}

int GroupedListView::verticalOffset() const {
    return verticalScrollBar()->value();
}

void GroupedListView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid()) return;
    if (contents_->isOutdated()) doItemsLayout();
    const ListGeometry& geometry = contents_->geometry();
    const int position = geometry.positionOf(index.row());
    QRect rect = geometry.rectOf(position);
    if (rect.isEmpty()) return;
    // The first row of a group brings its header into sight.
    const ListGeometry::Section& section = *geometry.sectionOfPosition(position);
    if (rect.top() == section.bodyTop) rect.setTop(section.top);
    const int height = viewport()->height();
    int top = verticalOffset();
    if (hint == PositionAtTop || (hint == EnsureVisible && rect.top() < top))
        top = rect.top();
    else if (hint == PositionAtBottom)
        top = rect.bottom() + 1 - height;
    else if (hint == PositionAtCenter)
        top = rect.center().y() - height / 2;
    else if (rect.bottom() + 1 > top + height)
        top = qMin(rect.bottom() + 1 - height, rect.top());
    verticalScrollBar()->setValue(top);

    const QRect cell = visualRect(index);
    if (!contents_->isDetails() || cell.width() == 0) return;
    if (cell.right() < 0 || cell.left() >= viewport()->width())
        horizontalScrollBar()->setValue(horizontalOffset() + cell.left());
}

void GroupedListView::updateGeometries() {
    ListHeader* header = contents_->header;
    const bool headerShown = contents_->isDetails() && !header->isHidden();
    const int headerHeight = headerShown ? header->sizeHint().height() : 0;
    setViewportMargins(0, headerHeight, 0, 0);
    if (headerShown)
        header->setGeometry(viewport()->x(), viewport()->y() - headerHeight, viewport()->width(),
                            headerHeight);

    const ListGeometry& geometry = contents_->geometry();
    const QSize room = viewport()->size();
    const std::optional<int> kept = contents_->takeKeptOffset();
    verticalScrollBar()->setPageStep(room.height());
    verticalScrollBar()->setSingleStep(contents_->effectiveRowHeight());
    verticalScrollBar()->setRange(0, qMax(0, geometry.height() - room.height()));
    if (kept) verticalScrollBar()->setValue(*kept);
    const int width = contents_->isDetails() ? header->length() : 0;
    horizontalScrollBar()->setPageStep(room.width());
    horizontalScrollBar()->setSingleStep(contents_->effectiveRowHeight());
    horizontalScrollBar()->setRange(0, qMax(0, width - room.width()));
    header->setOffset(horizontalOffset());
    QAbstractItemView::updateGeometries();
}

void GroupedListView::scrollContentsBy(int dx, int dy) {
    if (dx != 0) {
        contents_->header->setOffset(horizontalOffset());
        // Group headers do not go along, so that there is nothing to shift.
        viewport()->update();
    } else if (!input_->rubberBand().isEmpty() || dy == 0) {
        viewport()->update();
    } else {
        viewport()->scroll(0, dy);
    }
    input_->hoverAgain();
}

void GroupedListView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags flags) {
    input_->selectSpans(contents_->spansIn(rect.normalized()), flags);
}

QRegion GroupedListView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const int row : visibleRows()) {
        const bool inside = std::ranges::any_of(selection, [row](const QItemSelectionRange& range) {
            return row >= range.top() && row <= range.bottom();
        });
        if (inside) region += contents_->rowRect(row).intersected(viewport()->rect());
    }
    return region;
}

QModelIndex GroupedListView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    return input_->neighbour(action);
}

void GroupedListView::keyboardSearch(const QString& text) {
    input_->search(text);
}

// --- model

void GroupedListView::setModel(QAbstractItemModel* model) {
    contents_->connectModel(model);
    input_->forget();
    QAbstractItemView::setModel(model);
    contents_->header->setModel(model);
    contents_->forgetRowGroups();
}

void GroupedListView::reset() {
    input_->forget();
    contents_->forgetRowGroups();
    QAbstractItemView::reset();
    verticalScrollBar()->setValue(0);
}

void GroupedListView::rowsInserted(const QModelIndex& parent, int start, int end) {
    contents_->rowsInserted(start, end);
    QAbstractItemView::rowsInserted(parent, start, end);
}

void GroupedListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);
    if (contents_->isOutdated()) return;
    // The frame is around the whole row, or around the header of its collapsed group.
    for (const QModelIndex& index : {current, previous}) {
        if (!index.isValid()) continue;
        viewport()->update(contents_->rowRect(index.row()).intersected(viewport()->rect()));
        const Group* group = contents_->groupOfRow(index.row());
        if (group != nullptr && isGroupCollapsed(group->id)) viewport()->update(groupHeaderRect(group->id));
    }
}

void GroupedListView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                  const QList<int>& roles) {
    if (!topLeft.isValid() || !bottomRight.isValid()) return;
    if (state() == EditingState) QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    if (topLeft.column() == 0 && (roles.isEmpty() || roles.contains(GroupIdRole)))
        contents_->groupsOfRowsMayHaveChanged(topLeft.row(), bottomRight.row());
    // A layout that is due repaints everything.
    if (contents_->isOutdated() || !isVisible()) return;
    if (topLeft.row() == bottomRight.row()) {
        viewport()->update(contents_->rowRect(topLeft.row()).intersected(viewport()->rect()));
        return;
    }
    for (const int row : visibleRows())
        if (row >= topLeft.row() && row <= bottomRight.row()) viewport()->update(contents_->rowRect(row));
}

// --- events

void GroupedListView::paintEvent(QPaintEvent* event) {
    executeDelayedItemsLayout();
    painting_->paint(*event);
}

void GroupedListView::resizeEvent(QResizeEvent* event) {
    contents_->sizesChanged();
    QAbstractItemView::resizeEvent(event);
    updateGeometries();
}

void GroupedListView::changeEvent(QEvent* event) {
    QAbstractItemView::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::FontChange || type == QEvent::StyleChange) contents_->sizesChanged();
    if (type == QEvent::PaletteChange || type == QEvent::EnabledChange) viewport()->update();
}

void GroupedListView::focusInEvent(QFocusEvent* event) {
    QAbstractItemView::focusInEvent(event);
    viewport()->update();
}

void GroupedListView::focusOutEvent(QFocusEvent* event) {
    QAbstractItemView::focusOutEvent(event);
    viewport()->update();
}

bool GroupedListView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) input_->leave();
    if (event->type() == QEvent::ToolTip) {
        showToolTip(*static_cast<QHelpEvent*>(event));
        return true;
    }
    return QAbstractItemView::viewportEvent(event);
}

void GroupedListView::showToolTip(QHelpEvent& event) {
    const QModelIndex index = indexAt(event.pos());
    if (!index.isValid()) {
        QToolTip::hideText();
        return;
    }
    const QStyleOptionViewItem option = painting_->cellOption(index);
    QAbstractItemDelegate* delegate = itemDelegateForIndex(index);
    const QVariant own = index.data(Qt::ToolTipRole);
    if (own.isValid() && !own.toString().isEmpty()) {
        delegate->helpEvent(&event, this, option, index);
        return;
    }
    const auto* known = qobject_cast<const GroupedListDelegate*>(delegate);
    const bool cut = known != nullptr ? known->isTextCut(option, index)
                                      : delegate->sizeHint(option, index).width() > option.rect.width();
    const QString text = cut ? index.data().toString() : QString();
    // Escaped, since a value that looks like markup must be shown as it stands.
    const QString shown = text.size() > kLongestToolTip ? text.left(kLongestToolTip) + QChar(0x2026) : text;
    const QString markup =
        QStringLiteral("<span style=\"white-space:pre-wrap\">%1</span>").arg(shown.toHtmlEscaped());
    QToolTip::showText(event.globalPos(), text.isEmpty() ? QString() : markup, viewport(), visualRect(index));
}

void GroupedListView::mousePressEvent(QMouseEvent* event) {
    input_->press(*event);
}

void GroupedListView::mouseMoveEvent(QMouseEvent* event) {
    input_->move(*event);
}

void GroupedListView::mouseReleaseEvent(QMouseEvent* event) {
    input_->release(*event);
}

void GroupedListView::mouseDoubleClickEvent(QMouseEvent* event) {
    input_->doubleClick(*event);
}

void GroupedListView::contextMenuEvent(QContextMenuEvent* event) {
    input_->contextMenu(*event);
}

void GroupedListView::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(input_->key(*event));
}

}  // namespace controls
