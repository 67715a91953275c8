#pragma once

#include <QHeaderView>

namespace controls {

/// The column header of a GroupedListView: flat, 26 high at least, with a chevron for the sorted column.
class ListHeader : public QHeaderView {
    Q_OBJECT

 public:
    explicit ListHeader(QWidget* parent);

    QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
};

/// Draws the small arrow of a sorted column or of a group, pointing down, or up or right when turned by 180
/// or -90 degrees.
void paintChevron(QPainter& painter, const QRectF& rect, qreal degrees, const QColor& color);

}  // namespace controls
