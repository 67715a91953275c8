#include "controls/PictureView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace controls {

namespace {

constexpr double kZoomStep = 1.25;
constexpr double kSmallestZoom = 0.02;
constexpr double kLargestZoom = 32;
constexpr int kMargin = 4;

}  // namespace

PictureView::PictureView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
}

void PictureView::setImage(const QImage& image) {
    image_ = image;
    fit();
}

double PictureView::zoom() const {
    if (zoom_ > 0 || image_.isNull()) return zoom_ > 0 ? zoom_ : 1;
    const double across = static_cast<double>(viewport()->width() - 2 * kMargin) / image_.width();
    const double down = static_cast<double>(viewport()->height() - 2 * kMargin) / image_.height();
    return std::clamp(std::min(across, down), kSmallestZoom, 1.0);
}

void PictureView::setZoom(double zoom) {
    zoom_ = std::clamp(zoom, kSmallestZoom, kLargestZoom);
    updateScrollBars();
    viewport()->update();
}

void PictureView::fit() {
    zoom_ = 0;
    updateScrollBars();
    viewport()->update();
}

QSizeF PictureView::shownSize() const {
    return QSizeF(image_.size()) * zoom();
}

void PictureView::updateScrollBars() {
    const QSize size = fits() ? QSize() : shownSize().toSize();
    const auto update = [](QScrollBar& bar, int whole, int page) {
        bar.setPageStep(page);
        bar.setRange(0, std::max(0, whole - page));
    };
    update(*horizontalScrollBar(), size.width(), viewport()->width());
    update(*verticalScrollBar(), size.height(), viewport()->height());
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
    if (image_.isNull()) return;
    const QSizeF size = shownSize();
    const double left = std::max(0.0, (viewport()->width() - size.width()) / 2);
    const double top = std::max(0.0, (viewport()->height() - size.height()) / 2);
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, zoom() < 2);
    painter.drawImage(
        QRectF(QPointF(left - horizontalScrollBar()->value(), top - verticalScrollBar()->value()), size),
        image_);
}

void PictureView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void PictureView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return setZoom(zoom() * kZoomStep);
        case Qt::Key_Minus:
            return setZoom(zoom() / kZoomStep);
        case Qt::Key_0:
            return fit();
        case Qt::Key_1:
            return setZoom(1);
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

void PictureView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier) || event->angleDelta().y() == 0)
        return QAbstractScrollArea::wheelEvent(event);
    setZoom(event->angleDelta().y() > 0 ? zoom() * kZoomStep : zoom() / kZoomStep);
    event->accept();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
    if (fits())
        setZoom(1);
    else
        fit();
}

}  // namespace controls
