// The mouse half of GroupedListView::Input; the keys are in GroupedListKeyboard.cpp.
#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QStyle>

#include "controls/GroupedListContents.h"
#include "controls/GroupedListInput.h"
#include "controls/ListHeader.h"

namespace controls {

namespace {

constexpr int kBandScrollInterval = 20;  // milliseconds
constexpr int kCellInset = 2;

}  // namespace

GroupedListView::Input::Input(GroupedListView& view) : view_(view) {
    bandScroll_.setInterval(kBandScrollInterval);
    QObject::connect(&bandScroll_, &QTimer::timeout, &bandScroll_, [this] { scrollWhileBanding(); });
}

void GroupedListView::Input::forget() {
    pressed_ = {};
    pressedButton_ = Qt::NoButton;
    drag_ = Drag::None;
    bandScroll_.stop();
    hoveredGroup_.reset();
    searchText_.clear();
}

GroupedListView::Input::Hit GroupedListView::Input::hitTest(QPoint viewportPoint) const {
    Contents& contents = *view_.contents_;
    const ListGeometry& geometry = contents.geometry();
    const QPoint point = contents.toContent(viewportPoint);
    Hit hit;
    // Group headers stay in sight when the columns are scrolled sideways.
    if (const auto* section = geometry.headerAt({viewportPoint.x(), point.y()}); section != nullptr) {
        const Group& group = contents.groupAt(section->group);
        const QRect rect = geometry.headerRect(*section).translated(0, -view_.verticalOffset());
        const bool chevron = group.collapsible && view_.groupChevronRect(rect).contains(viewportPoint);
        hit.place = chevron ? Place::GroupChevron : Place::GroupHeader;
        hit.groupId = group.id;
        return hit;
    }
    const int position = geometry.positionAt(point);
    if (position < 0) return hit;
    const int column = contents.isDetails() ? contents.header->logicalIndexAt(viewportPoint.x()) : 0;
    const QRect cell = contents.toViewport(geometry.rectOf(position));
    const bool inside =
        contents.isDetails() ||
        cell.adjusted(kCellInset, kCellInset, -kCellInset, -kCellInset).contains(viewportPoint);
    if (column < 0 || !inside) return hit;
    hit.index = view_.model()->index(geometry.rowAt(position), column, view_.rootIndex());
    const bool box = column == 0 && contents.checkBoxRect(contents.cellRect(hit.index.row(), 0))
                                        .adjusted(-3, -3, 3, 3)
                                        .contains(viewportPoint);
    hit.place = box ? Place::CheckBox : Place::Cell;
    return hit;
}

bool GroupedListView::Input::selectsWith(const Hit& hit) const {
    return hit.place == Place::Cell &&
           (view_.contents_->fullRowSelection || !view_.contents_->isDetails() || hit.index.column() == 0);
}

void GroupedListView::Input::press(QMouseEvent& event) {
    const QPoint point = event.position().toPoint();
    pressed_ = hitTest(point);
    pressedIndex_ = pressed_.index;
    pressedButton_ = event.button();
    pressedModifiers_ = event.modifiers();
    pressedAt_ = point;
    selectOnRelease_ = false;
    searchText_.clear();
    drag_ = event.button() == Qt::LeftButton ? Drag::Waiting : Drag::None;
    if (event.button() != Qt::LeftButton && event.button() != Qt::RightButton) return;
    if (selectsWith(pressed_))
        pressOnRow(pressed_, event.button(), event.modifiers());
    else if (pressed_.place == Place::FreeArea || pressed_.place == Place::Cell)
        pressOnFreeArea(event.modifiers());
    if (pressed_.index.isValid()) Q_EMIT view_.pressed(pressed_.index);
}

void GroupedListView::Input::pressOnRow(const Hit& hit, Qt::MouseButton button,
                                        Qt::KeyboardModifiers modifiers) {
    const bool selected = view_.selectionModel()->isSelected(hit.index.siblingAtColumn(0));
    const bool several = view_.selectionMode() == ExtendedSelection;
    const bool control = several && modifiers.testFlag(Qt::ControlModifier);
    if (button == Qt::RightButton) {
        if (selected || control)
            makeCurrent(hit.index);
        else
            selectOnly(hit.index);
        return;
    }
    if (several && modifiers.testFlag(Qt::ShiftModifier)) {
        makeCurrent(hit.index);
        selectFromAnchor(hit.index, control);
        return;
    }
    if (selected) {
        // Kept until the button is up: the press may begin a drag of all that is selected.
        makeCurrent(hit.index);
        selectOnRelease_ = true;
    } else if (control) {
        makeCurrent(hit.index);
        toggle(hit.index);
    } else {
        selectOnly(hit.index);
    }
    anchor_ = hit.index;
}

void GroupedListView::Input::pressOnFreeArea(Qt::KeyboardModifiers modifiers) {
    const bool several = view_.selectionMode() == ExtendedSelection;
    if (!several || (modifiers & (Qt::ControlModifier | Qt::ShiftModifier)) == 0) view_.clearSelection();
}

void GroupedListView::Input::move(QMouseEvent& event) {
    const QPoint point = event.position().toPoint();
    if (drag_ == Drag::RubberBand) {
        growRubberBand(point);
        return;
    }
    if (event.buttons() == Qt::NoButton) {
        hoverAt(point);
        return;
    }
    if (drag_ != Drag::Waiting || (point - pressedAt_).manhattanLength() < QApplication::startDragDistance())
        return;
    if (selectsWith(pressed_)) {
        startItemDrag();
    } else if (view_.selectionMode() == ExtendedSelection &&
               (pressed_.place == Place::FreeArea || pressed_.place == Place::Cell)) {
        drag_ = Drag::RubberBand;
        bandFrom_ = view_.contents_->toContent(pressedAt_);
        bandModifiers_ = pressedModifiers_;
        bandBase_ = view_.selectionModel()->selection();
        bandScroll_.start();
        growRubberBand(point);
    }
}

void GroupedListView::Input::startItemDrag() {
    const bool draggable = view_.dragEnabled() && pressedIndex_.isValid() &&
                           view_.model()->flags(pressedIndex_).testFlag(Qt::ItemIsDragEnabled);
    drag_ = draggable ? Drag::Items : Drag::None;
    if (!draggable) return;
    selectOnRelease_ = false;
    view_.setState(DraggingState);
    view_.startDrag(view_.model()->supportedDragActions());
    view_.setState(NoState);
    // The drag has eaten the release.
    pressedButton_ = Qt::NoButton;
    drag_ = Drag::None;
}

void GroupedListView::Input::release(QMouseEvent& event) {
    if (event.button() != pressedButton_) return;
    const bool dragged = drag_ == Drag::RubberBand || drag_ == Drag::Items;
    const QRect band = rubberBand();
    bandScroll_.stop();
    drag_ = Drag::None;
    pressedButton_ = Qt::NoButton;
    if (dragged) {
        view_.viewport()->update(band.adjusted(-1, -1, 1, 1));
        return;
    }
    const Hit hit = hitTest(event.position().toPoint());
    const bool samePlace = hit.place == pressed_.place && hit.groupId == pressed_.groupId &&
                           hit.index == QModelIndex(pressedIndex_);
    if (!samePlace) return;
    if (event.button() == Qt::LeftButton && selectOnRelease_) finishPressOnRow(hit);
    selectOnRelease_ = false;
    tellClick(hit, event.button(), event.modifiers(), event.globalPosition().toPoint());
}

void GroupedListView::Input::finishPressOnRow(const Hit& hit) {
    const bool several = view_.selectionMode() == ExtendedSelection;
    if (pressedModifiers_.testFlag(Qt::ControlModifier))
        toggle(hit.index);
    else if (several)
        selectOnly(hit.index);
}

void GroupedListView::Input::tellClick(const Hit& hit, Qt::MouseButton button,
                                       Qt::KeyboardModifiers modifiers, QPoint globalPosition) {
    const bool left = button == Qt::LeftButton;
    const bool right = button == Qt::RightButton;
    const QPersistentModelIndex index = hit.index;
    switch (hit.place) {
        case Place::FreeArea:
            if (left) Q_EMIT view_.FreeAreaClicked();
            if (right) Q_EMIT view_.CellMenuRequested({}, globalPosition);
            break;
        case Place::GroupChevron:
        case Place::GroupHeader:
            if (left && hit.place == Place::GroupChevron) toggleGroup(hit.groupId);
            if (right) Q_EMIT view_.GroupHeaderMenuRequested(hit.groupId, globalPosition);
            break;
        case Place::CheckBox:
            if (left) {
                makeCurrent(hit.index);
                toggle(index);
                anchor_ = index;
            }
            if (right) Q_EMIT view_.CellMenuRequested(index, globalPosition);
            break;
        case Place::Cell:
            tellCellClick(index, button, modifiers, globalPosition);
            break;
    }
}

void GroupedListView::Input::tellCellClick(const QPersistentModelIndex& index, Qt::MouseButton button,
                                           Qt::KeyboardModifiers modifiers, QPoint globalPosition) {
    // Every listener may take the row away, or the whole view, and with it this object.
    const QPointer<GroupedListView> view = &view_;
    const auto goesOn = [&] { return view != nullptr && index.isValid(); };
    Q_EMIT view->CellClicked(index, button, modifiers);
    if (!goesOn()) return;
    if (button == Qt::RightButton) Q_EMIT view->CellMenuRequested(index, globalPosition);
    if (button != Qt::LeftButton) return;
    Q_EMIT view->clicked(index);
    if (goesOn() &&
        view->style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, view) != 0)
        Q_EMIT view->activated(index);
}

void GroupedListView::Input::doubleClick(QMouseEvent& event) {
    const Hit hit = hitTest(event.position().toPoint());
    const bool plain = event.button() == Qt::LeftButton &&
                       (event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) == 0;
    const bool opens = hit.place == Place::Cell || hit.place == Place::GroupHeader;
    if (!plain || !opens) {
        press(event);
        return;
    }
    pressedButton_ = Qt::NoButton;
    drag_ = Drag::None;
    if (hit.place == Place::GroupHeader) {
        toggleGroup(hit.groupId);
        return;
    }
    const QPersistentModelIndex index = hit.index;
    const QPointer<GroupedListView> view = &view_;
    Q_EMIT view->doubleClicked(index);
    if (view != nullptr && index.isValid() &&
        view->style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, view) == 0)
        Q_EMIT view->activated(index);
}

void GroupedListView::Input::toggleGroup(int groupId) {
    const Group* group = view_.contents_->findGroup(groupId);
    if (group != nullptr && group->collapsible)
        view_.setGroupCollapsed(groupId, !view_.isGroupCollapsed(groupId));
}

// --- rubber band

QRect GroupedListView::Input::rubberBand() const {
    if (drag_ != Drag::RubberBand) return {};
    return view_.contents_->toViewport(QRect(bandFrom_, bandTo_).normalized());
}

void GroupedListView::Input::growRubberBand(QPoint viewportPoint) {
    const QRect before = rubberBand();
    const QRect room = view_.viewport()->rect();
    const QPoint inside(qBound(0, viewportPoint.x(), room.right()),
                        qBound(0, viewportPoint.y(), room.bottom()));
    bandTo_ = view_.contents_->toContent(inside);
    const QRect band = rubberBand();
    view_.viewport()->update(before.united(band).adjusted(-1, -1, 1, 1));

    std::vector<ListGeometry::Span> spans;
    const ListGeometry& geometry = view_.contents_->geometry();
    const QRect content = QRect(bandFrom_, bandTo_).normalized();
    for (const ListGeometry::Span& span : view_.contents_->spansIn(band)) {
        if (geometry.metrics().perLine == 1) {
            if (content.left() < geometry.metrics().cell.width()) spans.push_back(span);
            continue;
        }
        for (int position = span.first; position <= span.last; ++position)
            if (geometry.rectOf(position).intersects(content)) spans.push_back({position, position});
    }
    QItemSelection selection = view_.contents_->selectionOf(spans);
    if (bandModifiers_.testFlag(Qt::ControlModifier) || bandModifiers_.testFlag(Qt::ShiftModifier)) {
        QItemSelection all = bandBase_;
        const bool toggles = bandModifiers_.testFlag(Qt::ControlModifier);
        all.merge(selection, toggles ? QItemSelectionModel::Toggle : QItemSelectionModel::Select);
        selection = all;
    }
    view_.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void GroupedListView::Input::scrollWhileBanding() {
    const QPoint point = view_.viewport()->mapFromGlobal(QCursor::pos());
    const QRect room = view_.viewport()->rect();
    const int over = point.y() < 0 ? point.y() : qMax(0, point.y() - room.bottom());
    if (over == 0) return;
    view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->value() + qBound(-60, over, 60));
    growRubberBand(point);
}

// --- hover

void GroupedListView::Input::hoverAt(QPoint viewportPoint) {
    hover(hitTest(viewportPoint));
}

void GroupedListView::Input::hover(const Hit& hit) {
    const bool onGroup = hit.place == Place::GroupHeader || hit.place == Place::GroupChevron;
    const std::optional<int> group = onGroup ? std::optional(hit.groupId) : std::nullopt;
    if (group != hoveredGroup_) {
        if (hoveredGroup_) view_.viewport()->update(view_.groupHeaderRect(*hoveredGroup_));
        if (group) view_.viewport()->update(view_.groupHeaderRect(*group));
        hoveredGroup_ = group;
    }
    if (QModelIndex(hovered_) == hit.index) return;
    const QRect room = view_.viewport()->rect();
    const auto updateRow = [&](int row) {
        const QRect rect = view_.contents_->rowRect(row);
        if (!rect.isEmpty()) view_.viewport()->update(rect.intersected(room));
    };
    const int before = hoveredRow();
    hovered_ = hit.index;
    if (before != hoveredRow()) {
        if (before >= 0) updateRow(before);
        if (hoveredRow() >= 0) updateRow(hoveredRow());
    }
    if (hit.index.isValid()) Q_EMIT view_.entered(hit.index);
    Q_EMIT view_.CellHovered(hit.index);
}

void GroupedListView::Input::hoverAgain() {
    if (view_.viewport()->underMouse() && drag_ == Drag::None)
        hoverAt(view_.viewport()->mapFromGlobal(QCursor::pos()));
}

void GroupedListView::Input::leave() {
    hoverAt({-1, -1});
}

}  // namespace controls
