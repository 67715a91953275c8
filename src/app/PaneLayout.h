#pragma once

#include "app/Settings.h"

#include <QRect>
#include <QSize>

namespace app {

/// Where the panes of the main window stand, in pixels of its client area. An empty rectangle: not shown.
struct PaneRects {
    QRect topBand;     ///< over the left pane, with its title
    QRect left;        ///< the left holder
    QRect leftHandle;  ///< what is dragged to change the left pane's width
    QRect middle;      ///< tabs, address bar and file list
    QRect rightHandle;
    QRect right;  ///< the one right holder that is active
};

struct PaneLayoutInput {
    QSize client;             ///< what the ribbon leaves of the window
    int statusBarHeight = 0;  ///< 0 when it is not shown
    int topBandHeight = 0;
    bool leftShown = true;
    bool rightShown = false;
    int leftWidth = 300;
    int rightWidth = 300;
};

/// The figures of the frame. A window too narrow for its panes takes from the right pane first, then from the
/// left, and never makes a width negative.
PaneRects PaneLayout(const PaneLayoutInput& input);

/// The width that a drag of the right pane's edge asks for; never below 300.
int rightHolderWidth(int asked);

}  // namespace app
