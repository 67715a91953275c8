#include "controls/PaneHandle.h"

#include <QMouseEvent>
#include <QPainter>

namespace controls {

PaneHandle::PaneHandle(QWidget* parent) : QWidget(parent) {
    setCursor(Qt::SplitHCursor);
    setAttribute(Qt::WA_Hover);
}

void PaneHandle::paintEvent(QPaintEvent*) {
    if (!dragging_ && !underMouse()) return;
    QPainter painter(this);
    QColor tint = palette().color(QPalette::Highlight);
    tint.setAlphaF(dragging_ ? 0.55F : 0.3F);
    painter.fillRect(QRect(width() / 2 - 1, 0, 2, height()), tint);
}

void PaneHandle::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    dragging_ = true;
    grabbedAt_ = qRound(event->position().x());
    update();
}

void PaneHandle::mouseMoveEvent(QMouseEvent* event) {
    if (dragging_) Q_EMIT DraggedTo(x() + qRound(event->position().x()) - grabbedAt_);
}

void PaneHandle::mouseReleaseEvent(QMouseEvent*) {
    dragging_ = false;
    update();
}

void PaneHandle::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT ResetRequested();
}

void PaneHandle::enterEvent(QEnterEvent*) {
    update();
}

void PaneHandle::leaveEvent(QEvent*) {
    update();
}

}  // namespace controls
