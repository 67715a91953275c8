#pragma once

#include <QAbstractScrollArea>
#include <QImage>

namespace controls {

/// Shows a picture: fitted into the view at first, never larger than it is; zoomed by the wheel with Ctrl, by
/// +, - and the double click, by 0 back to the fit and by 1 to its own size. GUI thread.
class PictureView : public QAbstractScrollArea {
    Q_OBJECT

 public:
    explicit PictureView(QWidget* parent = nullptr);

    void setImage(const QImage& image);
    const QImage& image() const { return image_; }

    /// Pixels of the view for one of the picture; fits() follows the size of the view.
    double zoom() const;
    bool fits() const { return zoom_ == 0; }
    void setZoom(double zoom);
    void fit();

    QSize sizeHint() const override { return {480, 400}; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
    QSizeF shownSize() const;
    void updateScrollBars();

    QImage image_;
    double zoom_ = 0;  ///< 0: fitted
};

}  // namespace controls
