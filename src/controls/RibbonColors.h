#pragma once

#include <QColor>
#include <QPalette>

namespace controls {

/// The tones of the ribbon, made from the palette so that they fit every look of the program.
struct RibbonColors {
    explicit RibbonColors(const QPalette& palette);

    QColor strip;  ///< behind the tabs
    QColor body;
    QColor line;
    QColor text;
    QColor secondaryText;
    QColor disabledText;
    QColor accent;
    QColor currentTab;  ///< its text, on the body
    QColor hover;
    QColor pressed;
    QColor checked;
    QColor checkedLine;
};

}  // namespace controls
