#pragma once

#include <QRect>

class QPainter;
class QPalette;

namespace controls {

inline constexpr int kTickBoxSide = 14;

struct TickBoxState {
    bool ticked = false;
    bool hovered = false;
};

/// A check box in a list, seen on light and on dark grounds.
void paintTickBox(QPainter& painter, const QRect& rect, const QPalette& palette, TickBoxState state);

}  // namespace controls
