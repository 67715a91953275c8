#pragma once

#include <QElapsedTimer>
#include <QPersistentModelIndex>
#include <QTimer>

#include <optional>

#include "controls/GroupedListView.h"
#include "controls/ListGeometry.h"

namespace controls {

/// What mouse and keyboard do in a GroupedListView: current row, selection, rubber band, type-ahead, hover,
/// clicks.
class GroupedListView::Input {
 public:
    explicit Input(GroupedListView& view);

    void press(QMouseEvent& event);
    void move(QMouseEvent& event);
    void release(QMouseEvent& event);
    void doubleClick(QMouseEvent& event);
    /// Returns false for a key that the list has no use for.
    bool key(QKeyEvent& event);
    void contextMenu(QContextMenuEvent& event);
    void search(const QString& text);

    void hoverAt(QPoint viewportPoint);
    void hoverAgain();
    void leave();
    int hoveredRow() const { return hovered_.isValid() ? hovered_.row() : -1; }
    std::optional<int> hoveredGroup() const { return hoveredGroup_; }
    /// In viewport coordinates; empty when none is drawn.
    QRect rubberBand() const;
    void forget();  ///< the model is gone or new

    QModelIndex indexAt(QPoint viewportPoint) const { return hitTest(viewportPoint).index; }
    QModelIndex neighbour(CursorAction action) const;
    void selectSpans(const std::vector<ListGeometry::Span>& spans, QItemSelectionModel::SelectionFlags flags);

 private:
    enum class Place { FreeArea, Cell, CheckBox, GroupHeader, GroupChevron };

    struct Hit {
        Place place = Place::FreeArea;
        QModelIndex index;
        int groupId = -1;
    };

    enum class Drag { None, Waiting, RubberBand, Items };

    Hit hitTest(QPoint viewportPoint) const;
    bool selectsWith(const Hit& hit) const;
    void pressOnRow(const Hit& hit, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void pressOnFreeArea(Qt::KeyboardModifiers modifiers);
    void finishPressOnRow(const Hit& hit);
    void tellClick(const Hit& hit, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                   QPoint globalPosition);
    void tellCellClick(const QPersistentModelIndex& index, Qt::MouseButton button,
                       Qt::KeyboardModifiers modifiers, QPoint globalPosition);
    void toggleGroup(int groupId);
    void hover(const Hit& hit);
    void startItemDrag();
    void growRubberBand(QPoint viewportPoint);
    void scrollWhileBanding();

    bool moveKey(CursorAction action, Qt::KeyboardModifiers modifiers);
    bool sideKey(int key, Qt::KeyboardModifiers modifiers);
    bool spaceKey(Qt::KeyboardModifiers modifiers);
    bool enterKey();
    void menuKey();
    int currentPosition() const;
    bool isSearching() const;

    void makeCurrent(const QModelIndex& index);
    void selectOnly(const QModelIndex& index);
    void toggle(const QModelIndex& index);
    void selectFromAnchor(const QModelIndex& index, bool keepOthers);

    GroupedListView& view_;
    QPersistentModelIndex anchor_;  // where a range by Shift begins
    Hit pressed_;
    QPersistentModelIndex pressedIndex_;
    Qt::MouseButton pressedButton_ = Qt::NoButton;
    Qt::KeyboardModifiers pressedModifiers_;
    QPoint pressedAt_;
    bool selectOnRelease_ = false;
    Drag drag_ = Drag::None;
    QPoint bandFrom_;  // content coordinates
    QPoint bandTo_;
    QItemSelection bandBase_;
    Qt::KeyboardModifiers bandModifiers_;
    QTimer bandScroll_;
    QPersistentModelIndex hovered_;
    std::optional<int> hoveredGroup_;
    QString searchText_;
    QElapsedTimer lastSearchKey_;
};

}  // namespace controls
