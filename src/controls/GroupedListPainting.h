#pragma once

#include "controls/GroupedListView.h"
#include "controls/ListColors.h"
#include "controls/ListGeometry.h"

class QPaintEvent;

namespace controls {

/// Paints what a GroupedListView shows: what the exposed rectangle needs and no more.
class GroupedListView::Painting {
 public:
    explicit Painting(GroupedListView& view) : view_(view) {}

    void paint(const QPaintEvent& event);
    /// What the delegate gets for a cell, without what the model says of it.
    QStyleOptionViewItem cellOption(const QModelIndex& index) const;
    void paintDefaultGroupHeader(QPainter& painter, const QRect& rect, const Group& group, bool collapsed,
                                 bool hovered) const;

 private:
    struct Row {
        QModelIndex index;  // column 0
        QRect rect;
        bool selected = false;
        bool hovered = false;
        bool alternate = false;
    };

    QStyleOptionViewItem commonOption() const;
    void paintHeaders(QPainter& painter, const QRect& exposed) const;
    void paintRow(QPainter& painter, const Row& row, const QRect& exposed) const;
    void paintTint(QPainter& painter, const Row& row) const;
    void paintCells(QPainter& painter, const Row& row, const QRect& exposed) const;
    void paintCell(QPainter& painter, const Row& row, const QModelIndex& index, const QRect& cell) const;
    void paintCheckBox(QPainter& painter, const Row& row, const QRect& cell) const;
    void paintGrid(QPainter& painter, const Row& row) const;
    void paintEmpty(QPainter& painter) const;
    void paintRubberBand(QPainter& painter) const;

    GroupedListView& view_;
    ListColors colors_{QPalette()};
    QStyleOptionViewItem common_;
};

}  // namespace controls
