#pragma once

#include <QWidget>
#include <vector>

namespace controls {

class RibbonGroup;

/// The body of one tab: its groups in a row. When they do not fit, groups collapse into drop-downs, the one
/// of the lowest priority first and among equals the rightmost; when even that is too wide, the wheel moves
/// the row.
class RibbonPage : public QWidget {
    Q_OBJECT

 public:
    explicit RibbonPage(QWidget* parent = nullptr);

    /// Becomes its owner.
    void addGroup(RibbonGroup* group);
    const std::vector<RibbonGroup*>& groups() const { return groups_; }
    /// Moves the row so that the widget, one of a group, is in view.
    void ensureVisible(const QWidget* widget);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

 private:
    void arrange();
    void place();
    int rowWidth() const;
    std::vector<RibbonGroup*> inOrderOfCollapse() const;

    std::vector<RibbonGroup*> groups_;
    int offset_ = 0;
};

}  // namespace controls
