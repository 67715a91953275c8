// The keyboard half of GroupedListView::Input, and what selects; the mouse is in GroupedListMouse.cpp.
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScrollBar>

#include "controls/GroupedListContents.h"
#include "controls/GroupedListInput.h"
#include "controls/ListHeader.h"

namespace controls {

// --- selection

void GroupedListView::Input::makeCurrent(const QModelIndex& index) {
    view_.selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void GroupedListView::Input::selectOnly(const QModelIndex& index) {
    const bool none = view_.selectionMode() == NoSelection;
    view_.selectionModel()->setCurrentIndex(
        index, none ? QItemSelectionModel::NoUpdate
                    : QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    anchor_ = index;
}

void GroupedListView::Input::toggle(const QModelIndex& index) {
    QItemSelectionModel& selection = *view_.selectionModel();
    if (view_.selectionMode() == NoSelection) return;
    const bool several = view_.selectionMode() != SingleSelection;
    const bool selected = selection.isSelected(index.siblingAtColumn(0));
    QItemSelectionModel::SelectionFlags flags =
        selected ? QItemSelectionModel::Deselect
                 : (several ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect);
    selection.select(index, flags | QItemSelectionModel::Rows);
}

void GroupedListView::Input::selectFromAnchor(const QModelIndex& index, bool keepOthers) {
    const ListGeometry& geometry = view_.contents_->geometry();
    if (!anchor_.isValid() || geometry.positionOf(anchor_.row()) < 0) anchor_ = index;
    const auto spans = view_.contents_->shownSpansBetween(geometry.positionOf(anchor_.row()),
                                                          geometry.positionOf(index.row()));
    selectSpans(spans, keepOthers ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect);
}

void GroupedListView::Input::selectSpans(const std::vector<ListGeometry::Span>& spans,
                                         QItemSelectionModel::SelectionFlags flags) {
    view_.selectionModel()->select(view_.contents_->selectionOf(spans), flags);
}

// --- keys

bool GroupedListView::Input::key(QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const int key = event.key();
    if (view_.model() == nullptr) return false;
    if (key == Qt::Key_Menu || (key == Qt::Key_F10 && modifiers == Qt::ShiftModifier)) {
        menuKey();
        return true;
    }
    if ((modifiers & (Qt::AltModifier | Qt::MetaModifier)) != 0) return false;
    static constexpr std::pair<int, CursorAction> kMoveKeys[] = {
        {Qt::Key_Up, MoveUp},   {Qt::Key_Down, MoveDown},     {Qt::Key_Home, MoveHome},
        {Qt::Key_End, MoveEnd}, {Qt::Key_PageUp, MovePageUp}, {Qt::Key_PageDown, MovePageDown},
    };
    for (const auto& [moveKeyCode, action] : kMoveKeys)
        if (moveKeyCode == key) return moveKey(action, modifiers);
    if (key == Qt::Key_Left || key == Qt::Key_Right) return sideKey(key, modifiers);
    if (key == Qt::Key_Space && !isSearching()) return spaceKey(modifiers);
    if ((key == Qt::Key_Enter || key == Qt::Key_Return) && modifiers == Qt::NoModifier) return enterKey();
    if (key == Qt::Key_F2 && modifiers == Qt::NoModifier)
        return view_.currentIndex().isValid() && view_.edit(view_.currentIndex(), EditKeyPressed, &event);
    const bool text = !event.text().isEmpty() && event.text().at(0).isPrint();
    if (!text || modifiers.testFlag(Qt::ControlModifier)) return false;
    view_.keyboardSearch(event.text());
    return true;
}

bool GroupedListView::Input::moveKey(CursorAction action, Qt::KeyboardModifiers modifiers) {
    searchText_.clear();
    const QModelIndex index = neighbour(action);
    if (!index.isValid()) return view_.contents_->geometry().positionCount() > 0;
    const bool several = view_.selectionMode() == ExtendedSelection;
    if (several && modifiers.testFlag(Qt::ShiftModifier)) {
        if (!anchor_.isValid()) anchor_ = view_.currentIndex();
        makeCurrent(index);
        selectFromAnchor(index, modifiers.testFlag(Qt::ControlModifier));
    } else if (modifiers.testFlag(Qt::ControlModifier)) {
        makeCurrent(index);
        anchor_ = index;
    } else {
        selectOnly(index);
    }
    return true;
}

bool GroupedListView::Input::sideKey(int key, Qt::KeyboardModifiers modifiers) {
    const bool left = key == Qt::Key_Left;
    Contents& contents = *view_.contents_;
    if (!contents.isDetails()) return moveKey(left ? MoveLeft : MoveRight, modifiers);
    if (modifiers != Qt::NoModifier) return false;
    if (contents.groupsEnabled) {
        const Group* group =
            view_.currentIndex().isValid() ? contents.groupOfRow(view_.currentIndex().row()) : nullptr;
        if (group == nullptr || !group->collapsible) return false;
        view_.setGroupCollapsed(group->id, left);
        if (!left) view_.scrollTo(view_.currentIndex());
        return true;
    }
    QScrollBar& bar = *view_.horizontalScrollBar();
    if (bar.minimum() == bar.maximum()) return false;
    bar.triggerAction(left ? QAbstractSlider::SliderSingleStepSub : QAbstractSlider::SliderSingleStepAdd);
    return true;
}

bool GroupedListView::Input::spaceKey(Qt::KeyboardModifiers modifiers) {
    const QModelIndex current = view_.currentIndex();
    if (!current.isValid() || view_.isIndexHidden(current)) return false;
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    if (control || view_.contents_->checkBoxes)
        toggle(current);
    else
        selectOnly(current);
    anchor_ = current;
    return true;
}

bool GroupedListView::Input::enterKey() {
    const QModelIndex current = view_.currentIndex();
    if (!current.isValid() || view_.isIndexHidden(current)) return false;
    Q_EMIT view_.activated(current);
    return true;
}

void GroupedListView::Input::menuKey() {
    const QModelIndex current = view_.currentIndex();
    const QRect rect =
        current.isValid() ? view_.visualRect(current).intersected(view_.viewport()->rect()) : QRect();
    if (rect.isEmpty())
        Q_EMIT view_.CellMenuRequested({}, view_.viewport()->mapToGlobal(view_.viewport()->rect().center()));
    else
        Q_EMIT view_.CellMenuRequested(current, view_.viewport()->mapToGlobal(rect.center()));
}

void GroupedListView::Input::contextMenu(QContextMenuEvent& event) {
    // By mouse the menu comes when the button is up, by key from the key event itself: on some platforms Qt
    // sends this event in addition, on others it does not.
    event.accept();
    if (event.reason() != QContextMenuEvent::Other) return;
    const Hit hit = hitTest(event.pos());
    if (hit.place == Place::GroupHeader || hit.place == Place::GroupChevron)
        Q_EMIT view_.GroupHeaderMenuRequested(hit.groupId, event.globalPos());
    else
        Q_EMIT view_.CellMenuRequested(hit.index, event.globalPos());
}

int GroupedListView::Input::currentPosition() const {
    const QModelIndex current = view_.currentIndex();
    return current.isValid() ? view_.contents_->geometry().positionOf(current.row()) : -1;
}

QModelIndex GroupedListView::Input::neighbour(CursorAction action) const {
    const Contents& contents = *view_.contents_;
    const ListGeometry& geometry = view_.contents_->geometry();
    const int position = currentPosition();
    const int page = view_.viewport()->height() - geometry.metrics().cell.height();
    const QPoint centre = geometry.rectOf(position).center();
    const auto pageFrom = [&](int distance) {
        const int target = geometry.nearestShown(centre + QPoint(0, distance));
        return target == position ? -1 : target;
    };
    const bool lines = !contents.isDetails() && position >= 0;
    int target = -1;
    switch (action) {
        case MoveUp:
            target = lines ? geometry.previousLine(position) : geometry.previousShown(position);
            break;
        case MoveDown:
            target = lines ? geometry.nextLine(position) : geometry.nextShown(position);
            break;
        case MoveLeft:
        case MovePrevious:
            target = geometry.previousShown(position);
            break;
        case MoveRight:
        case MoveNext:
            target = geometry.nextShown(position);
            break;
        case MoveHome:
            target = geometry.nextShown(-1);
            break;
        case MoveEnd:
            target = geometry.previousShown(geometry.positionCount());
            break;
        case MovePageUp:
            target = geometry.isShown(position) ? pageFrom(-page) : geometry.previousShown(position);
            break;
        case MovePageDown:
            target = geometry.isShown(position) ? pageFrom(page) : geometry.nextShown(position);
            break;
    }
    if (target < 0) return {};
    const int column =
        contents.isDetails() && view_.currentIndex().isValid() ? view_.currentIndex().column() : 0;
    return view_.model()->index(geometry.rowAt(target), column, view_.rootIndex());
}

// --- type-ahead

bool GroupedListView::Input::isSearching() const {
    return !searchText_.isEmpty() && !lastSearchKey_.hasExpired(QApplication::keyboardInputInterval());
}

void GroupedListView::Input::search(const QString& text) {
    const bool goesOn = isSearching();
    lastSearchKey_.start();
    searchText_ = goesOn ? searchText_ + text : text;
    if (view_.model() == nullptr || searchText_.isEmpty()) return;
    // The same letter again and again walks through the names that begin with it.
    const bool repeated = searchText_.count(searchText_.at(0), Qt::CaseInsensitive) == searchText_.size();
    const QString wanted = repeated ? searchText_.left(1) : searchText_;
    const ListGeometry& geometry = view_.contents_->geometry();
    const int count = geometry.positionCount();
    const int start = qMax(currentPosition(), 0) + (repeated && currentPosition() >= 0 ? 1 : 0);
    for (int step = 0; step < count; ++step) {
        const int position = (start + step) % count;
        const int row = geometry.rowAt(position);
        const QString name =
            view_.model()->index(row, view_.contents_->searchColumn, view_.rootIndex()).data().toString();
        if (!QStringView(name).trimmed().startsWith(wanted, Qt::CaseInsensitive) ||
            !geometry.isShown(position))
            continue;
        const int column = view_.contents_->isDetails() ? qMax(view_.currentIndex().column(), 0) : 0;
        selectOnly(view_.model()->index(row, column, view_.rootIndex()));
        return;
    }
}

}  // namespace controls
