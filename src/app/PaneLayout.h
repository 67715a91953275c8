#pragma once

#include "app/Settings.h"

#include <QRect>
#include <QSize>
#include <array>
#include <optional>

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

/// What takes the keyboard, from left to right.
enum class Pane { Folders, Files, Tags };
inline constexpr std::size_t kPaneCount = 3;

/// The pane that the keyboard goes to next, round and round; from elsewhere to the files, which are always
/// shown.
Pane nextPane(std::optional<Pane> current, const std::array<bool, kPaneCount>& shown, bool backwards);

/// The width of the right pane in a client area of that width. One that the user has never dragged, and which
/// is as the first run has it, gets most of what a wide window has more: its values are cut before the names
/// of files are.
int spreadRightWidth(int stored, int clientWidth);

/// The width that a drag of the right pane's edge asks for; never below 300.
int rightHolderWidth(int asked);

}  // namespace app
