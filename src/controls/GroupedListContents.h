#pragma once

#include <QHash>
#include <QPersistentModelIndex>
#include <QSet>
#include <optional>

#include "controls/GroupedListView.h"
#include "controls/ListGeometry.h"

namespace controls {

class ListHeader;

/// What a GroupedListView shows and where: the groups, the groups of the rows, and the geometry, which is
/// made anew only when it is asked for after a change, so that ten thousand inserts cost one layout.
class GroupedListView::Contents {
 public:
    explicit Contents(GroupedListView& view);

    /// Up to date.
    const ListGeometry& geometry();
    bool isOutdated() const { return rowsOutdated_ || sizesOutdated_; }

    /// Before the view itself is connected, so that its slots find the change already noted.
    void connectModel(QAbstractItemModel* model);
    void rowsChanged();   ///< number, order or groups of the rows
    void sizesChanged();  ///< columns, viewport, fonts, collapsed groups
    void forgetRowGroups();
    void rowsInserted(int start, int end);
    void rowsAboutToBeRemoved(int start, int end);
    void rowsRemoved(int start, int end);
    void groupsOfRowsMayHaveChanged(int start, int end);

    void setGroups(std::vector<Group> groups);
    Group* findGroup(int groupId);
    const Group& groupAt(int groupIndex) const { return groups_[static_cast<size_t>(groupIndex)]; }
    bool isCollapsed(int groupId) const { return collapsedIds_.contains(groupId); }
    void setCollapsed(int groupId, bool collapsed);
    /// nullptr when the group has no rows.
    const ListGeometry::Section* sectionOfId(int groupId);
    /// nullptr when the row is in no group.
    const Group* groupOfRow(int row);

    QPoint toContent(QPoint viewportPoint) const;
    QRect toViewport(QRect contentRect) const;
    /// The whole row of Details, or the cell of the other layouts, in viewport coordinates.
    QRect rowRect(int row);
    QRect cellRect(int row, int column);
    /// The cell without its check box: what the delegate gets.
    QRect delegateRect(const QRect& cellRect, int column) const;
    QRect checkBoxRect(const QRect& cellRect) const;
    /// Positions of which anything stands inside a rectangle of the viewport.
    std::vector<ListGeometry::Span> spansIn(const QRect& viewportRect);
    /// Both ends inside, in any order; collapsed groups are left out. As few ranges as possible.
    QItemSelection selectionOf(const std::vector<ListGeometry::Span>& spans);
    std::vector<ListGeometry::Span> shownSpansBetween(int onePosition, int otherPosition);

    /// The scroll position that keeps the noted top row where it was; nothing when it may stay.
    std::optional<int> takeKeptOffset();

    int rowCount() const;
    int effectiveRowHeight() const;
    bool isDetails() const { return layout == Layout::Details; }

    ListHeader* const header;
    Layout layout = Layout::Details;
    bool headerWanted = true;  ///< of Details, while another layout hides the header
    int pictureSide = 96;
    int rowHeight = 24;
    bool groupsEnabled = false;
    bool checkBoxes = false;
    bool gridLines = false;
    bool fullRowSelection = true;
    int searchColumn = 0;
    QString emptyText;

 private:
    ListGeometry::Metrics metrics() const;
    int readGroupIndex(int row) const;
    void readMissingRowGroups();
    void keepPlaceOf(int oldRow, int newRow);

    GroupedListView& view_;
    ListGeometry geometry_;
    std::vector<Group> groups_;
    QHash<int, int> groupIndexOfId_;
    QSet<int> collapsedIds_;
    std::vector<int> groupOfRow_;  // empty without groups
    bool rowsOutdated_ = true;
    bool sizesOutdated_ = true;
    std::vector<QMetaObject::Connection> connections_;
    QPersistentModelIndex keptRow_;
    int keptRowTop_ = 0;
};

}  // namespace controls
