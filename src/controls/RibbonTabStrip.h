#pragma once

#include <QTabBar>

namespace controls {

/// The tabs of the ribbon, 30 high. It only shows and chooses; the ribbon does the rest.
class RibbonTabStrip : public QTabBar {
    Q_OBJECT

 public:
    explicit RibbonTabStrip(QWidget* parent = nullptr);

    /// A folded ribbon has no current tab to join a body with.
    void setFolded(bool folded);

 protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

 private:
    void paintTab(QPainter& painter, int index) const;

    bool folded_ = false;
    int hoveredTab_ = -1;
};

}  // namespace controls
