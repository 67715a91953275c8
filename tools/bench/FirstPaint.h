#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace bench {

/// Calls back once when a widget has been painted and what was painted has been handed to the display: the
/// call comes from the event loop behind the paint event of the first widget that isWanted accepts. Watches
/// the whole application until then. GUI thread.
class FirstPaint : public QObject {
    Q_OBJECT

 public:
    FirstPaint(std::function<bool(const QWidget&)> isWanted, std::function<void()> painted);

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    std::function<bool(const QWidget&)> isWanted_;
    std::function<void()> painted_;
};

}  // namespace bench
