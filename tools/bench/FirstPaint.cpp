#include "FirstPaint.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace bench {

FirstPaint::FirstPaint(std::function<bool(const QWidget&)> isWanted, std::function<void()> painted)
    : isWanted_(std::move(isWanted)), painted_(std::move(painted)) {
    qApp->installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint && watched->isWidgetType() &&
        isWanted_(static_cast<const QWidget&>(*watched))) {
        qApp->removeEventFilter(this);
        // The paint event is only the middle of the work: the pixels are handed over when it has returned.
        QMetaObject::invokeMethod(
            this, [this] { painted_(); }, Qt::QueuedConnection);
    }
    return false;
}

}  // namespace bench
