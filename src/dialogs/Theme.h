#pragma once

#include "app/Settings.h"

#include <QColor>
#include <QPalette>
#include <cstdint>

class QApplication;

namespace dialogs {

/// The colours of the window by their role, light or dark. Every text role reads on every ground role with a
/// contrast of at least 4.5. The colours of the metadata panel are settings of their own.
struct Theme {
    bool dark = false;
    QColor window;
    QColor base;  ///< lists and edits
    QColor alternateBase;
    QColor button;
    QColor text;
    QColor secondaryText;
    QColor accent;
    QColor accentText;  ///< on the accent
    QColor line;
    QColor link;

    static Theme Light();
    /// The tones by number: 1 to 6, 8 and 9; all others are the first tone.
    static Theme Dark(int darkTone);
    static Theme of(const app::Settings::Dark& settings);

    QPalette palette() const;
};

/// The background of a dark tone.
QColor darkBackground(int darkTone);

/// Gives the application its look: the Fusion style, the palette, and the icon theme that fits it.
void applyTheme(QApplication& application, const Theme& theme);

}  // namespace dialogs
