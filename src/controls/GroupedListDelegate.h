#pragma once

#include <QStyledItemDelegate>

namespace controls {

/// Paints the cells of a GroupedListView; the view itself paints the ground, tint, frame and check box of the
/// rows. Descendants change colours and fonts in initStyleOption (or the model answers Qt::ForegroundRole,
/// Qt::FontRole), or paint their own things over or instead of paint().
///
/// option.rect is the cell without the check box; option.palette has a transparent highlight, since selected
/// rows keep the colour of their texts.
class GroupedListDelegate : public QStyledItemDelegate {
    Q_OBJECT

 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Whether the text of the cell does not fit into option.rect, so that a tooltip has to show it.
    virtual bool isTextCut(const QStyleOptionViewItem& option, const QModelIndex& index) const;

    /// Where the text of a details cell stands, for descendants that paint their own.
    static QRect detailsTextRect(const QStyleOptionViewItem& option);

 private:
    void paintDetails(QPainter& painter, const QStyleOptionViewItem& option) const;
    void paintTile(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintIcon(QPainter& painter, const QStyleOptionViewItem& option) const;
};

}  // namespace controls
