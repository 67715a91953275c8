#pragma once

#include <QProxyStyle>

namespace controls {

/// The Fusion style, with check boxes and radio buttons that can be seen on dark grounds too: Fusion draws
/// their frames darker than the window, which a dark window swallows. The application owns it.
class IndicatorStyle : public QProxyStyle {
    Q_OBJECT

 public:
    IndicatorStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace controls
