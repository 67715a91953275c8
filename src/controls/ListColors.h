#pragma once

#include <QColor>

class QPalette;

namespace controls {

/// The colours of the lists that a palette has no role for, mixed from its base, text and highlight colours,
/// so that they fit light and dark palettes alike.
struct ListColors {
    explicit ListColors(const QPalette& palette);

    QColor secondaryText;    ///< 4.5:1 on the base and on the alternate base, as groupTitle is
    QColor line;             ///< header borders, grid lines
    QColor hover;            ///< translucent, over the row's ground
    QColor selected;         ///< translucent, over the row's ground
    QColor selectedHovered;  ///< translucent, over the row's ground
    QColor focusFrame;       ///< 3:1 on every ground of a row, as selectionMark is
    QColor selectionMark;  ///< at the left edge of a selected row: the tint alone is too faint to be told by
    QColor checkBoxFrame;  ///< 3:1 on the base
    QColor groupTitle;
    QColor headerGround;

    struct RowState {
        bool alternate = false;
        bool selected = false;
        bool hovered = false;
    };
    /// What stands behind the texts of such a row.
    QColor groundOf(RowState state) const;

 private:
    QColor base_;
    QColor alternateBase_;
};

}  // namespace controls
