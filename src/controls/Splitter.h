#pragma once

#include <QList>
#include <QSplitter>

namespace controls {

/// A splitter whose handles are 6 wide and stand back until the mouse is over them. GUI thread.
class Splitter : public QSplitter {
    Q_OBJECT

 public:
    /// In a list of sizes: the widget takes what the others leave.
    static constexpr int kRest = -1;

    explicit Splitter(Qt::Orientation orientation, QWidget* parent = nullptr);

    /// The sizes in pixels, one a widget, that a double click on any handle restores; empty for none.
    void setResetSizes(const QList<int>& sizes) { resetSizes_ = sizes; }
    const QList<int>& resetSizes() const { return resetSizes_; }
    /// As QSplitter::setSizes(), with kRest understood.
    void applySizes(const QList<int>& sizes);

 Q_SIGNALS:
    /// The user has let go of a handle that was dragged, or has reset the sizes. (splitterMoved() comes with
    /// every step on the way.)
    void SizesChosen();

 protected:
    QSplitterHandle* createHandle() override;

 private:
    QList<int> resetSizes_;
};

}  // namespace controls
