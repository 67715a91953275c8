#pragma once

#include <QColor>

class QPalette;

namespace controls {

/// The colours of the lists that a palette has no role for, mixed from its base, text and highlight colours,
/// so that they fit light and dark palettes alike.
struct ListColors {
    explicit ListColors(const QPalette& palette);

    QColor secondaryText;    ///< 4.5:1 on the base and on the alternate base
    QColor line;             ///< header borders, grid lines
    QColor hover;            ///< translucent, over the row's ground
    QColor selected;         ///< translucent, over the row's ground
    QColor selectedHovered;  ///< translucent, over the row's ground
    QColor focusFrame;
    QColor checkBoxFrame;  ///< 3:1 on the base
    QColor groupTitle;
    QColor headerGround;
};

}  // namespace controls
