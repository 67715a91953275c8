#pragma once

#include <QWidget>

namespace controls {

/// The strip between two panes that is dragged to change their widths: light until the mouse is on it. It
/// moves nothing itself. GUI thread.
class PaneHandle : public QWidget {
    Q_OBJECT

 public:
    explicit PaneHandle(QWidget* parent);

 Q_SIGNALS:
    /// The mouse is at this x of the parent; told while dragging.
    void DraggedTo(int x);
    /// The double click that asks for the width the pane has by default.
    void ResetRequested();

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

 private:
    bool dragging_ = false;
    int grabbedAt_ = 0;
};

}  // namespace controls
