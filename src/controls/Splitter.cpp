#include "controls/Splitter.h"

#include <QMouseEvent>
#include <QPainter>

#include "controls/ListColors.h"

namespace controls {

namespace {

constexpr int kHandleWidth = 6;

class Handle : public QSplitterHandle {
 public:
    explicit Handle(Splitter* splitter)
        : QSplitterHandle(splitter->orientation(), splitter), splitter_(splitter) {
        setAttribute(Qt::WA_Hover);
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QColor ground = palette().color(QPalette::Window);
        painter.fillRect(rect(), ground);
        if (!underMouse() && !dragged_) return;
        const QColor accent = palette().color(QPalette::Active, QPalette::Highlight);
        painter.fillRect(rect().adjusted(margin(Qt::Horizontal), margin(Qt::Vertical),
                                         -margin(Qt::Horizontal), -margin(Qt::Vertical)),
                         mixedColor(ground, accent, dragged_ ? 0.6F : 0.35F));
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        QSplitterHandle::mouseMoveEvent(event);
        if (event->buttons().testFlag(Qt::LeftButton)) dragged_ = true;
        update();
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        QSplitterHandle::mouseReleaseEvent(event);
        if (event->button() != Qt::LeftButton || !dragged_) return;
        dragged_ = false;
        update();
        Q_EMIT splitter_->SizesChosen();
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton || splitter_->resetSizes().isEmpty()) return;
        splitter_->applySizes(splitter_->resetSizes());
        Q_EMIT splitter_->SizesChosen();
    }

 private:
    /// The bar is 2 wide in the middle of the handle.
    int margin(Qt::Orientation side) const { return side == orientation() ? (kHandleWidth - 2) / 2 : 0; }

    Splitter* splitter_;
    bool dragged_ = false;
};

}  // namespace

Splitter::Splitter(Qt::Orientation orientation, QWidget* parent) : QSplitter(orientation, parent) {
    setHandleWidth(kHandleWidth);
    setOpaqueResize(true);
}

QSplitterHandle* Splitter::createHandle() {
    return new Handle(this);
}

void Splitter::applySizes(const QList<int>& sizes) {
    const int whole = orientation() == Qt::Horizontal ? width() : height();
    int taken = 0;
    int shownBefore = 0;
    for (int place = 0; place < count(); ++place) {
        if (widget(place)->isHidden()) continue;
        if (shownBefore++ > 0) taken += handleWidth();
        if (place < sizes.size() && sizes[place] != kRest) taken += sizes[place];
    }
    QList<int> all = sizes;
    for (int& size : all)
        if (size == kRest) size = qMax(0, whole - taken);
    setSizes(all);
}

}  // namespace controls
